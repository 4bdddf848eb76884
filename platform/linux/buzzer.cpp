#include "linux/buzzer.h"

#include "linux/config.h"
#include "linux/log.h"

#include <utility>

namespace HmiLinux {

Buzzer::Buzzer(Root root, const Config &config, std::unique_ptr<Sounder> sounder, QObject *parent)
    : QObject(parent)
    , m_root(std::move(root))
    , m_stateFile(config.stateDirectory + QStringLiteral("/buzzer"))
    , m_sounder(std::move(sounder))
    , m_end(this)
{
    if (const std::optional<QByteArray> saved = m_root.read(m_stateFile))
        m_on = saved->trimmed() != "off";
    m_end.setSingleShot(true);
    m_end.setTimerType(Qt::PreciseTimer);
    m_end.setInterval(config.buzzerDuration);
    connect(&m_end, &QTimer::timeout, this, &Buzzer::end);
}

void Buzzer::setOn(bool on)
{
    if (m_on.exchange(on) == on)
        return;
    if (!m_root.replace(m_stateFile, on ? "on\n" : "off\n"))
        qCWarning(deviceLog, "whether keys beep cannot be kept in %s", qPrintable(m_root.path(m_stateFile)));
}

void Buzzer::beep()
{
    if (!m_sounder)
        return;
    if (!m_sounder->sound(true)) {
        qCWarning(deviceLog, "the buzzer may not be used; it is left alone from now on");
        m_sounder.reset();
        return;
    }
    m_end.start();
}

void Buzzer::end()
{
    if (m_sounder)
        m_sounder->sound(false);
}

} // namespace HmiLinux
