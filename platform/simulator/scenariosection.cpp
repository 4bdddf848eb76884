#include "simulator/scenariosection.h"

#include "simulator/scenarioreading.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace HmiSimulator {

namespace {

constexpr int MaximumRepeat = 100000;
constexpr int LongestAddress = 15; // "255.255.255.255"
constexpr int HardwareAddressLength = 17;

std::optional<HMI::IP> addressFrom(const QString &text)
{
    if (text.size() > LongestAddress)
        return std::nullopt;
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != 4)
        return std::nullopt;
    quint32 address = 0;
    for (const QString &part : parts) {
        bool ok = false;
        const uint octet = part.toUInt(&ok);
        if (!ok || octet > 255 || part.size() > 3)
            return std::nullopt;
        address = address << 8U | octet;
    }
    return HMI::IP(address);
}

/// Bytes from pairs of hexadecimal digits; QByteArray::fromHex() would skip what is none.
std::optional<QByteArray> bytesFrom(const QString &hex)
{
    const QByteArray digits = hex.toLatin1();
    const QByteArray bytes = QByteArray::fromHex(digits);
    if (bytes.toHex() != digits.toLower())
        return std::nullopt;
    return bytes;
}

} // namespace

ScenarioSection::ScenarioSection(QJsonObject object, JsonLines::Place place, ScenarioReading &reading)
    : m_object(std::move(object)), m_place(std::move(place)), m_reading(reading)
{}

ScenarioSection::~ScenarioSection()
{
    const auto &members = m_place.members;
    for (auto member = members.begin(); member != members.end(); ++member) {
        const auto isMember = [&member](QLatin1String taken) { return taken == member.key(); };
        if (m_reading.wouldKeep(member->line) && std::none_of(m_taken.begin(), m_taken.end(), isMember))
            m_reading.refuse(member->line,
                             QStringLiteral("unknown key ") + ScenarioReading::quoted(member.key()));
    }
}

bool ScenarioSection::has(const char *key) const
{
    return m_object.contains(QLatin1String(key));
}

void ScenarioSection::read(const char *key, bool &value)
{
    const QJsonValue found = take(key);
    if (found.isBool())
        value = found.toBool();
    else if (!found.isUndefined())
        refuse(key, QStringLiteral("must be true or false"));
}

void ScenarioSection::read(const char *key, int &value, int minimum, int maximum)
{
    long long wide = value;
    read(key, wide, minimum, maximum);
    value = static_cast<int>(wide);
}

void ScenarioSection::read(const char *key, long long &value, long long minimum, long long maximum)
{
    const QJsonValue found = take(key);
    if (found.isUndefined())
        return;
    const double number = found.toDouble(NAN);
    // The negated form also catches what is no number at all.
    if (!(number >= static_cast<double>(minimum) && number <= static_cast<double>(maximum)) ||
        std::trunc(number) != number) {
        refuse(key, QStringLiteral("must be a whole number from %1 to %2").arg(minimum).arg(maximum));
        return;
    }
    value = static_cast<long long>(number);
}

void ScenarioSection::read(const char *key, HMI::IP &value)
{
    const QJsonValue found = take(key);
    if (found.isUndefined())
        return;
    if (const std::optional<HMI::IP> address = addressFrom(found.toString()))
        value = *address;
    else
        refuse(key, QStringLiteral("must be an address like \"192.168.1.10\""));
}

void ScenarioSection::read(const char *key, HMI::MAC &value)
{
    const QJsonValue found = take(key);
    if (found.isUndefined())
        return;
    const QString text = found.toString();
    std::optional<QByteArray> bytes;
    if (text.size() == HardwareAddressLength && text.count(QLatin1Char(':')) == 5)
        bytes = bytesFrom(QString(text).remove(QLatin1Char(':')));
    if (bytes && bytes->size() == static_cast<int>(value.size()))
        std::copy_n(bytes->constData(), value.size(), value.begin());
    else
        refuse(key, QStringLiteral("must be a hardware address like \"02:1B:44:11:3A:B7\""));
}

void ScenarioSection::readBytes(const char *key, std::string &value, int maximum)
{
    if (!has(key))
        return;
    int repeat = 1;
    const QByteArray bytes = takeBytes(key, repeat);
    const qint64 size = static_cast<qint64>(bytes.size()) * repeat;
    if (size > maximum) {
        refuse(key, QStringLiteral("has %1 bytes, may have %2").arg(size).arg(maximum));
    } else if (!m_reading.takeRoom(size)) {
        refuse(key, QStringLiteral("makes the texts of the scenario longer than %1 bytes")
                        .arg(ScenarioReading::MaximumText));
    } else {
        value = bytes.repeated(repeat).toStdString();
    }
}

/// The bytes that stand at @p key in one of their three forms, and how often they are meant.
QByteArray ScenarioSection::takeBytes(const char *key, int &repeat)
{
    const QJsonValue found = take(key);
    if (found.isString())
        return found.toString().toUtf8();
    if (!found.isObject()) {
        refuse(key, QStringLiteral("must be a text, or an object with \"hex\" or \"text\""));
        return {};
    }
    ScenarioSection parts(found.toObject(), m_place.at(QLatin1String(key)), m_reading);
    if (parts.has("hex")) {
        const std::optional<QByteArray> decoded = bytesFrom(parts.take("hex").toString());
        if (!decoded)
            parts.refuse("hex", QStringLiteral("must be pairs of hexadecimal digits"));
        return decoded.value_or(QByteArray());
    }
    parts.read("repeat", repeat, 0, MaximumRepeat);
    const QJsonValue text = parts.take("text");
    if (!text.isString())
        refuse(key, QStringLiteral("needs \"hex\" or \"text\", each a text"));
    return text.toString().toUtf8();
}

void ScenarioSection::readChoice(const char *key, int &value, const QStringList &names)
{
    const QJsonValue found = take(key);
    if (found.isUndefined())
        return;
    const int place = found.isString() ? names.indexOf(found.toString()) : -1;
    if (place < 0)
        refuse(key, QStringLiteral("must be one of \"%1\"").arg(names.join(QStringLiteral("\", \""))));
    else
        value = place;
}

void ScenarioSection::readComment()
{
    const QJsonValue found = take("comment");
    if (!found.isUndefined() && !found.isString())
        refuse("comment", QStringLiteral("must be a text"));
}

QJsonArray ScenarioSection::list(const char *key, int minimum, int maximum)
{
    const QJsonValue found = take(key);
    if (found.isUndefined())
        return {};
    QJsonArray list = found.toArray();
    if (!found.isArray() || list.size() < minimum || list.size() > maximum) {
        refuse(key, minimum == maximum
                        ? QStringLiteral("must be a list of %1").arg(minimum)
                        : QStringLiteral("must be a list of %1 to %2").arg(minimum).arg(maximum));
        return {};
    }
    return list;
}

ScenarioSection ScenarioSection::section(const char *key)
{
    const QJsonValue found = take(key);
    const QString name = QLatin1String(key);
    return nested(name, found.isUndefined() ? QJsonValue(QJsonObject()) : found, m_place.at(name));
}

ScenarioSection ScenarioSection::element(const char *list, int index, const QJsonValue &value)
{
    return nested(QString::number(index), value, m_place.at(QLatin1String(list)).at(index));
}

ScenarioSection ScenarioSection::nested(const QString &name, const QJsonValue &value,
                                        const JsonLines::Place &place)
{
    if (!value.isObject())
        m_reading.refuse(place.line, QStringLiteral("\"%1\" must be an object").arg(name));
    return ScenarioSection(value.toObject(), place, m_reading);
}

void ScenarioSection::refuse(const char *key, const QString &reason)
{
    m_reading.refuse(m_place.at(QLatin1String(key)).line,
                     QLatin1Char('"') + QLatin1String(key) + QLatin1String("\" ") + reason);
}

QJsonValue ScenarioSection::take(const char *key)
{
    const QLatin1String name(key);
    if (!m_taken.contains(name))
        m_taken.append(name);
    return m_object.value(name);
}

} // namespace HmiSimulator
