#include "simulator/scenariosection.h"

#include <cmath>

namespace HmiSimulator {

namespace {

constexpr int MaximumRepeat = 100000;

std::optional<HMI::IP> addressFrom(const QString &text)
{
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

ScenarioSection::ScenarioSection(QJsonObject object, QStringList path, Problems &problems)
    : m_object(std::move(object)), m_path(std::move(path)), m_problems(problems)
{}

ScenarioSection::~ScenarioSection()
{
    const QStringList keys = m_object.keys();
    for (const QString &key : keys) {
        if (!m_taken.contains(key))
            m_problems.append({m_path + QStringList(key), QStringLiteral("unknown key \"%1\"").arg(key)});
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
    const std::optional<QByteArray> bytes = bytesFrom(QString(text).remove(QLatin1Char(':')));
    if (text.count(QLatin1Char(':')) != 5 || !bytes || bytes->size() != 6)
        refuse(key, QStringLiteral("must be a hardware address like \"02:1B:44:11:3A:B7\""));
    else
        std::copy(bytes->begin(), bytes->end(), value.begin());
}

void ScenarioSection::readBytes(const char *key, std::string &value, int maximum)
{
    const QJsonValue found = take(key);
    if (found.isUndefined())
        return;
    QByteArray bytes;
    if (found.isString()) {
        bytes = found.toString().toUtf8();
    } else if (found.isObject()) {
        ScenarioSection parts(found.toObject(), m_path + QStringList(QLatin1String(key)), m_problems);
        if (parts.has("hex")) {
            const std::optional<QByteArray> decoded = bytesFrom(parts.take("hex").toString());
            if (!decoded)
                parts.refuse("hex", QStringLiteral("must be pairs of hexadecimal digits"));
            bytes = decoded.value_or(QByteArray());
        } else {
            int repeat = 1;
            parts.read("repeat", repeat, 0, MaximumRepeat);
            const QJsonValue text = parts.take("text");
            if (!text.isString())
                refuse(key, QStringLiteral("needs \"hex\" or \"text\", each a text"));
            bytes = text.toString().toUtf8().repeated(repeat);
        }
    } else {
        refuse(key, QStringLiteral("must be a text, or an object with \"hex\" or \"text\""));
        return;
    }
    if (bytes.size() > maximum)
        refuse(key, QStringLiteral("has %1 bytes, may have %2").arg(bytes.size()).arg(maximum));
    else
        value = bytes.toStdString();
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
    return nested(m_path + QStringList(QLatin1String(key)),
                  found.isUndefined() ? QJsonValue(QJsonObject()) : found);
}

ScenarioSection ScenarioSection::element(const char *list, int index, const QJsonValue &value)
{
    return nested(m_path + QStringList{QLatin1String(list), QString::number(index)}, value);
}

ScenarioSection ScenarioSection::nested(const QStringList &path, const QJsonValue &value)
{
    if (!value.isObject())
        m_problems.append({path, QStringLiteral("\"%1\" must be an object").arg(path.last())});
    return ScenarioSection(value.toObject(), path, m_problems);
}

void ScenarioSection::refuse(const char *key, const QString &reason)
{
    m_problems.append({m_path + QStringList(QLatin1String(key)),
                       QLatin1Char('"') + QLatin1String(key) + QLatin1String("\" ") + reason});
}

QJsonValue ScenarioSection::take(const char *key)
{
    const QString name = QLatin1String(key);
    m_taken.insert(name);
    return m_object.value(name);
}

} // namespace HmiSimulator
