#pragma once

#include "tests/linux/harness/sandbox.h"
#include "tests/linux/servicescene.h"

#include <QtCore/QFile>

#include <unistd.h>

/// A panel in a sandbox with a real daemon.
struct SandboxScene : ServiceScene {
    void startService() { startOn({}); }

    static QStringList tell(const char *words)
    {
        return Sandbox::tell(QString::fromLatin1(words).split(QLatin1Char(' '))).value_or(QStringList{});
    }
    /// The addresses that the kernel has, whatever the services say.
    static QString kernelAddresses(const char *port)
    {
        return tell(QByteArray("addresses ").append(port).constData()).join(QLatin1Char(' '));
    }
    /// What the package of a panel does for its user.
    static void allowPing()
    {
        QFile range(QStringLiteral("/proc/sys/net/ipv4/ping_group_range"));
        const QByteArray group = QByteArray::number(::getgid());
        if (range.open(QIODevice::WriteOnly))
            range.write(group + ' ' + group);
    }
    /// Whether requests come to @p outcome, each after the one before.
    bool requestDhcp(bool on, int outcome, std::size_t place = 0)
    {
        const int count = reports().size() + 1;
        setDhcp(on, place);
        return QTest::qWaitFor([this, count] { return reports().size() >= count; }, 60000) &&
               reports().constLast() == outcome;
    }
};
