#include "linux/config.h"

#include "linux/addressrules.h"
#include "linux/snapshot.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSet>

#include <cerrno>
#include <functional>
#include <sys/stat.h>
#include <vector>

namespace HmiLinux {

namespace {

using HMI::SystemSet;

/// Takes a value over, or says what is wrong with it.
using Take = std::function<QString(Config &, const QString &)>;

struct Key {
    QLatin1String section;
    QLatin1String name;
    Take take;
};

// The kernel's limit for the name of an interface, without the end.
constexpr int g_longestInterface = 15;

/// Whether it is one of the words that stand in the place of a name.
bool isNoInterface(const QString &value)
{
    return value == QLatin1String("auto") || value == QLatin1String("none");
}

Take adapter(SystemSet::NIC nic)
{
    return [nic](Config &config, const QString &value) {
        if (value.size() > g_longestInterface || value.contains(QLatin1Char('/')) ||
            value.contains(QLatin1Char(' ')))
            return QStringLiteral("\"%1\" is no name of an interface").arg(value);
        for (const auto &other : config.adapters) {
            const bool isNamed = other.second == value && !isNoInterface(value);
            if (isNamed && other.first != nic)
                return QStringLiteral("\"%1\" is the interface of %2 already")
                    .arg(value, nameOf(other.first));
        }
        config.adapters[nic] = value;
        return QString();
    };
}

Take text(QString Config::*member)
{
    return [member](Config &config, const QString &value) {
        config.*member = value;
        return QString();
    };
}

/// An absolute path, or one of the @p words.
Take path(QString Config::*member, const QStringList &words = {})
{
    return [member, words](Config &config, const QString &value) {
        if (!value.startsWith(QLatin1Char('/')) && !words.contains(value)) {
            QStringList wanted = words;
            wanted.append(QStringLiteral("an absolute path"));
            return QStringLiteral("\"%1\" is not %2").arg(value, wanted.join(QStringLiteral(" or ")));
        }
        config.*member = value;
        return QString();
    };
}

Take number(int Config::*member, int lowest, int highest)
{
    return [=](Config &config, const QString &value) {
        bool isNumber = false;
        const int parsed = value.toInt(&isNumber);
        if (!isNumber || parsed < lowest || parsed > highest)
            return QStringLiteral("\"%1\" is no number from %2 to %3").arg(value).arg(lowest).arg(highest);
        config.*member = parsed;
        return QString();
    };
}

QString takePingTarget(Config &config, const QString &value)
{
    if (value != QLatin1String("gateway") && !addressOf(value))
        return QStringLiteral("\"%1\" is neither \"gateway\" nor an IPv4 address").arg(value);
    config.pingTarget = value;
    return {};
}

QString takeBacklight(Config &config, const QString &value)
{
    if (value.contains(QLatin1Char('/')))
        return QStringLiteral("\"%1\" is no name in /sys/class/backlight").arg(value);
    config.backlight = value;
    return {};
}

std::vector<Key> makeKeys()
{
    const auto key = [](const char *section, const char *name, Take take) {
        return Key{QLatin1String(section), QLatin1String(name), std::move(take)};
    };
    const QString automatic = QStringLiteral("auto");
    const QString none = QStringLiteral("none");
    return {
        key("adapters", "LAN0", adapter(SystemSet::LAN0)),
        key("adapters", "LAN1", adapter(SystemSet::LAN1)),
        key("adapters", "WIFI", adapter(SystemSet::WIFI)),
        key("adapters", "MOBILE_4G", adapter(SystemSet::MOBILE_4G)),
        key("adapters", "VPN", adapter(SystemSet::VPN)),
        key("ping", "target", takePingTarget),
        key("ping", "timeout", number(&Config::pingTimeout, 100, 14000)),
        key("mobile", "apn", text(&Config::apn)),
        key("vpn", "Asia", text(&Config::vpnAsia)),
        key("vpn", "Europe", text(&Config::vpnEurope)),
        key("vpn", "retry", number(&Config::vpnRetry, 1, 3600)),
        key("backlight", "device", takeBacklight),
        key("backlight", "minimum", number(&Config::backlightMinimum, 1, 65535)),
        key("buzzer", "device", path(&Config::buzzer, {automatic, none})),
        key("buzzer", "frequency", number(&Config::buzzerFrequency, 20, 20000)),
        key("buzzer", "duration", number(&Config::buzzerDuration, 1, 1000)),
        key("identity", "serial-number", path(&Config::serialNumber, {automatic})),
        key("language", "file", path(&Config::languageFile)),
        key("state", "directory", path(&Config::stateDirectory)),
    };
}

/// Reads line by line; knows where it is.
class Reading
{
public:
    Reading(QString file, QStringList *problems)
        : m_file(std::move(file)), m_problems(problems), m_keys(makeKeys())
    {}

    void take(const QString &line)
    {
        ++m_line;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char(';')))
            return;
        if (line.startsWith(QLatin1Char('[')))
            return takeSection(line);
        const int equals = line.indexOf(QLatin1Char('='));
        if (equals < 1)
            return complain(QStringLiteral("neither a [section] nor a \"key = value\""));
        takeValue(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }

    const Config &config() const { return m_config; }

private:
    void takeSection(const QString &line)
    {
        m_section.clear();
        m_skips = true; // of a section that is not known each line would only repeat it
        if (!line.endsWith(QLatin1Char(']')))
            return complain(QStringLiteral("a section ends in \"]\""));
        const QString name = line.mid(1, line.size() - 2).trimmed();
        for (const Key &key : m_keys) {
            if (key.section == name)
                m_section = name;
        }
        m_skips = m_section.isEmpty();
        if (m_skips)
            complain(QStringLiteral("unknown section \"%1\"").arg(name));
    }

    void takeValue(const QString &name, const QString &value)
    {
        if (m_section.isEmpty()) {
            if (!m_skips)
                complain(QStringLiteral("\"%1\" stands in no section").arg(name));
            return;
        }
        for (const Key &key : m_keys) {
            if (key.section != m_section || key.name != name)
                continue;
            const QString full = m_section + QLatin1Char('/') + name;
            if (m_seen.contains(full))
                return complain(QStringLiteral("\"%1\" is there twice; the first one counts").arg(name));
            m_seen.insert(full);
            const QString reason =
                value.isEmpty() ? QStringLiteral("\"%1\" has no value").arg(name) : key.take(m_config, value);
            if (!reason.isEmpty())
                complain(reason);
            return;
        }
        complain(QStringLiteral("unknown key \"%1\" in [%2]").arg(name, m_section));
    }

    void complain(const QString &reason)
    {
        m_problems->append(QStringLiteral("%1:%2: %3").arg(m_file).arg(m_line).arg(reason));
    }

    QString m_file;
    QStringList *m_problems;
    std::vector<Key> m_keys;
    Config m_config;
    QString m_section;
    QSet<QString> m_seen;
    int m_line = 0;
    bool m_skips = false;
};

/// Whether there is no such file. One that nobody gets to, or a link that leads nowhere, was meant to be one.
bool isMissing(const QString &path)
{
    struct stat found = {};
    return ::lstat(QFile::encodeName(path).constData(), &found) != 0 && errno == ENOENT;
}

} // namespace

Config readConfig(const QString &path, QStringList *problems)
{
    QFile file(path);
    const QString name = QFileInfo(path).fileName();
    if (isMissing(path))
        return {};
    const QByteArray contents = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError) {
        problems->append(QStringLiteral("%1: cannot be read: %2").arg(name, file.errorString()));
        return {};
    }
    Reading reading(name, problems);
    const QList<QByteArray> lines = contents.split('\n');
    for (const QByteArray &line : lines)
        reading.take(QString::fromUtf8(line).trimmed());
    return reading.config();
}

} // namespace HmiLinux
