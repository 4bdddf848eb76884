#include "linux/beeper.h"

#include "linux/config.h"
#include "linux/log.h"

namespace HmiLinux {

Beeper::Beeper(const Config &config, std::unique_ptr<Sounder> sounder, QObject *parent)
    : QObject(parent), m_sounder(std::move(sounder)), m_end(this)
{
    m_end.setSingleShot(true);
    m_end.setTimerType(Qt::PreciseTimer);
    m_end.setInterval(config.buzzerDuration);
    connect(&m_end, &QTimer::timeout, this, &Beeper::end);
}

void Beeper::beep()
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

void Beeper::end()
{
    if (m_sounder)
        m_sounder->sound(false);
}

} // namespace HmiLinux
