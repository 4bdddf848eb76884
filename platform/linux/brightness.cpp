#include "linux/brightness.h"

#include "linux/config.h"
#include "linux/log.h"

#include <QtCore/QDir>

#include <algorithm>
#include <cmath>
#include <utility>

namespace HmiLinux {

namespace {

using HMI::SystemSet;

constexpr auto g_backlights = "/sys/class/backlight/";
constexpr int g_steps = SystemSet::BRIGHT_MAX - SystemSet::BRIGHT_MIN;

int numberIn(const std::optional<QByteArray> &contents)
{
    return contents ? contents->trimmed().toInt() : 0;
}

} // namespace

Brightness::Brightness(Root root, const Config &config, Later later)
    : m_root(std::move(root))
    , m_later(std::move(later))
    , m_device(chooseDevice(config.backlight))
    , m_stateFile(config.stateDirectory + QStringLiteral("/brightness"))
    , m_level(SystemSet::BRIGHT_MAX)
{
    const int saved = numberIn(m_root.read(m_stateFile));
    const bool isSaved = saved >= SystemSet::BRIGHT_MIN && saved <= SystemSet::BRIGHT_MAX;
    if (m_device.isEmpty()) {
        if (isSaved)
            m_level = saved;
        return;
    }
    m_maximum = std::max(1, numberIn(m_root.read(m_device + QStringLiteral("/max_brightness"))));
    m_minimum = std::min(config.backlightMinimum, m_maximum);
    const int raw = numberIn(m_root.read(m_device + QStringLiteral("/brightness")));
    m_level = levelOf(raw);
    // A level stands for many raw values, and the darkest one also for those at which nothing can be read.
    const int wanted = isSaved ? saved : m_level.load();
    const bool isOtherwise = isSaved ? raw != rawOf(saved) : raw < m_minimum;
    if (isOtherwise && !m_root.isReadOnly() && write(wanted))
        m_level = wanted;
}

void Brightness::setLevel(int level, bool save)
{
    if (level < SystemSet::BRIGHT_MIN || level > SystemSet::BRIGHT_MAX)
        return;
    if (!write(level))
        return;
    m_level = level;
    if (!save)
        return;
    m_later([root = m_root, file = m_stateFile, level] {
        if (!root.replace(file, QByteArray::number(level) + '\n'))
            qCWarning(deviceLog, "the brightness cannot be kept in %s", qPrintable(root.path(file)));
    });
}

QString Brightness::chooseDevice(const QString &wanted) const
{
    const QString directory = QLatin1String(g_backlights);
    const QStringList devices =
        QDir(m_root.path(directory)).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    if (wanted == QLatin1String("auto"))
        return devices.isEmpty() ? QString() : directory + devices.constFirst();
    if (devices.contains(wanted))
        return directory + wanted;
    qCWarning(deviceLog, "there is no backlight \"%s\"", qPrintable(wanted));
    return {};
}

int Brightness::rawOf(int level) const
{
    const double share = double(level - SystemSet::BRIGHT_MIN) / g_steps;
    return m_minimum + int(std::lround(share * (m_maximum - m_minimum)));
}

int Brightness::levelOf(int raw) const
{
    if (m_maximum == m_minimum)
        return SystemSet::BRIGHT_MAX;
    const double share = double(raw - m_minimum) / (m_maximum - m_minimum);
    return std::clamp(SystemSet::BRIGHT_MIN + int(std::lround(share * g_steps)), int(SystemSet::BRIGHT_MIN),
                      int(SystemSet::BRIGHT_MAX));
}

bool Brightness::write(int level)
{
    if (m_device.isEmpty() ||
        m_root.tell(m_device + QStringLiteral("/brightness"), QByteArray::number(rawOf(level))))
        return true;
    if (!m_failed)
        qCWarning(deviceLog, "the backlight %s may not be written", qPrintable(m_device));
    m_failed = true;
    return false;
}

} // namespace HmiLinux
