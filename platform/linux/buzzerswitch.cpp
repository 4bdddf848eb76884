#include "linux/buzzerswitch.h"

#include "linux/config.h"
#include "linux/log.h"

namespace HmiLinux {

BuzzerSwitch::BuzzerSwitch(Root root, const Config &config, bool isThere)
    : m_root(std::move(root))
    , m_stateFile(config.stateDirectory + QStringLiteral("/buzzer"))
    , m_isThere(isThere)
    , m_on(isThere && m_root.read(m_stateFile).value_or(QByteArray()).trimmed() != "off")
{}

void BuzzerSwitch::setOn(bool on)
{
    if (!m_isThere || m_on.exchange(on) == on)
        return;
    if (!m_root.replace(m_stateFile, on ? "on\n" : "off\n"))
        qCWarning(deviceLog, "whether keys beep cannot be kept in %s", qPrintable(m_root.path(m_stateFile)));
}

} // namespace HmiLinux
