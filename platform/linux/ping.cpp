#include "linux/ping.h"

#include "linux/log.h"

#include <QtCore/QSocketNotifier>

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <netinet/ip_icmp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace HmiLinux {

namespace {

// One packet may be lost.
constexpr int g_interval = 1000;

} // namespace

Ping::Ping(const QString &interface, HMI::IP target, int limit, OnOutcome done, QObject *parent)
    : QObject(parent), m_target(target), m_done(std::move(done)), m_again(this), m_limit(this)
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] { end(false); });
    connect(&m_again, &QTimer::timeout, this, &Ping::send);
    const QString reason = open(interface);
    if (!reason.isEmpty()) {
        qCWarning(pingLog, "nobody can be asked over %s: %s", qPrintable(interface), qPrintable(reason));
        m_limit.start(0);
        return;
    }
    auto *arrival = new QSocketNotifier(m_socket, QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, &Ping::receive);
    m_limit.start(limit);
    m_again.start(g_interval);
    send();
}

Ping::~Ping()
{
    if (m_socket >= 0)
        ::close(m_socket);
}

QString Ping::open(const QString &interface)
{
    m_socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_ICMP);
    if (m_socket < 0) {
        return QStringLiteral("%1 (the group must lie in net.ipv4.ping_group_range)")
            .arg(QString::fromLocal8Bit(std::strerror(errno)));
    }
    const QByteArray name = interface.toLocal8Bit();
    if (::setsockopt(m_socket, SOL_SOCKET, SO_BINDTODEVICE, name.constData(), socklen_t(name.size())) != 0)
        return QString::fromLocal8Bit(std::strerror(errno));
    return {};
}

void Ping::send()
{
    // Identity and checksum are the kernel's: it hands each socket the answers to its own questions alone.
    icmphdr echo = {};
    echo.type = ICMP_ECHO;
    echo.un.echo.sequence = htons(++m_sequence);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(m_target);
    // An adapter that has just got its address may refuse: it is asked again.
    if (::sendto(m_socket, &echo, sizeof echo, 0, reinterpret_cast<const sockaddr *>(&address),
                 sizeof address) < 0)
        qCDebug(pingLog, "not sent: %s", std::strerror(errno));
}

void Ping::receive()
{
    std::array<char, 256> bytes = {};
    const ssize_t length = ::recv(m_socket, bytes.data(), bytes.size(), 0);
    icmphdr answer = {};
    if (length < ssize_t(sizeof answer))
        return;
    std::memcpy(&answer, bytes.data(), sizeof answer);
    if (answer.type == ICMP_ECHOREPLY)
        end(true);
}

void Ping::end(bool answered)
{
    m_limit.stop();
    m_again.stop();
    deleteLater();
    if (const OnOutcome done = std::exchange(m_done, {}))
        done(answered);
}

} // namespace HmiLinux
