#include "tests/linux/privatebus.h"

#include <QtCore/QFile>

#include <csignal>
#include <sys/prctl.h>

namespace {

constexpr int g_patience = 30000;

const char g_configuration[] =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="false"/>
    <allow eavesdrop="false"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

void BoundProcess::setupChildProcess()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

PrivateBus::PrivateBus()
{
    QFile configuration(m_directory.filePath(QStringLiteral("bus.conf")));
    if (configuration.open(QIODevice::WriteOnly))
        configuration.write(QString::fromLatin1(g_configuration).arg(address()).toUtf8());
}

PrivateBus::~PrivateBus()
{
    kill();
}

QString PrivateBus::address() const
{
    return QStringLiteral("unix:path=") + m_directory.filePath(QStringLiteral("bus"));
}

bool PrivateBus::start()
{
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + m_directory.filePath(QStringLiteral("bus.conf")),
                    QStringLiteral("--nofork"), QStringLiteral("--nopidfile"), QStringLiteral("--nosyslog"),
                    QStringLiteral("--print-address=1")});
    // It tells its address once it can be reached there.
    return m_daemon.waitForStarted(g_patience) && m_daemon.waitForReadyRead(g_patience);
}

void PrivateBus::kill()
{
    if (m_daemon.state() == QProcess::NotRunning)
        return;
    m_daemon.kill();
    m_daemon.waitForFinished(g_patience);
    // The socket of a bus that was killed stays and would be in the way of the next one.
    QFile::remove(m_directory.filePath(QStringLiteral("bus")));
}
