#include "tests/linux/fakeobjects.h"
#include "tests/linux/privatebus.h"
#include "tests/support/paneltest.h"

#include "linux/ask.h"
#include "linux/bus.h"
#include "linux/clock.h"
#include "linux/power.h"

using namespace HmiLinux;

namespace {

QString timedate()
{
    return QStringLiteral("org.freedesktop.timedate1");
}

} // namespace

class TestLinuxClock : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void timeIsSet();
    void networkTimeIsStopped();
    void nobodyWaitsAnyMore();
    void refusedTimeIsToldOnce();
    void impossibleTimesAreNotAsked();
    void nobodyThere();
    void deviceRestarts();
    void deviceDoesNotRestart();

private:
    bool set(qint64 seconds)
    {
        Clock clock(m_connection.get());
        std::optional<bool> outcome;
        clock.set(
            seconds, [&outcome](bool succeeded) { outcome = succeeded; }, [this] { return m_isWanted; });
        return QTest::qWaitFor([&outcome] { return outcome.has_value(); }, 30000) && *outcome;
    }

    bool m_isWanted = true;
    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<FakeObjects> m_daemon;
    std::unique_ptr<Bus> m_connection;
};

void TestLinuxClock::init()
{
    beginWatch();
    m_isWanted = true;
    m_bus = std::make_unique<PrivateBus>();
    QVERIFY(m_bus->start());
    m_daemon = std::make_unique<FakeObjects>();
    m_connection = std::make_unique<Bus>(m_bus->address());
    m_connection->open();
    QVERIFY(m_connection->isOpen());
}

void TestLinuxClock::cleanup()
{
    m_connection.reset();
    m_daemon.reset();
    m_bus.reset();
    endWatch();
}

void TestLinuxClock::timeIsSet()
{
    QVERIFY(m_daemon->publish(m_bus->address(), timedate()));
    QVariantList arguments;
    m_daemon->onCall(QStringLiteral("SetTime"), [&arguments](const QDBusMessage &message) {
        arguments = message.arguments();
        return message.createReply();
    });
    QVERIFY(set(1700000000));
    QCOMPARE(arguments.value(0).toLongLong(), 1700000000LL * 1000000);
    QCOMPARE(arguments.value(1), QVariant(false)); // not an offset
    QCOMPARE(arguments.value(2), QVariant(false)); // nobody there to be asked for a password
    QCOMPARE(m_daemon->calls(), QStringList{QStringLiteral("SetTime")});
}

void TestLinuxClock::networkTimeIsStopped()
{
    QVERIFY(m_daemon->publish(m_bus->address(), timedate()));
    int refusals = 0;
    bool isKept = true;
    m_daemon->onCall(QStringLiteral("SetTime"), [&](const QDBusMessage &message) {
        // The service that keeps the time takes a moment to stop.
        if (!isKept && ++refusals > 20)
            return message.createReply();
        return message.createErrorReply(QStringLiteral("org.freedesktop.timedate1.AutomaticTimeSyncEnabled"),
                                        QStringLiteral("Automatic time synchronization is enabled"));
    });
    m_daemon->onCall(QStringLiteral("SetNTP"), [&isKept](const QDBusMessage &message) {
        isKept = message.arguments().value(0).toBool();
        return message.createReply();
    });
    QVERIFY(set(1700000000));
    QVERIFY(!isKept);
    QCOMPARE(m_daemon->calls().count(QStringLiteral("SetNTP")), 1);
    QCOMPARE(m_daemon->calls().count(QStringLiteral("SetTime")), 22);
}

void TestLinuxClock::nobodyWaitsAnyMore()
{
    QVERIFY(m_daemon->publish(m_bus->address(), timedate()));
    m_daemon->onCall(QStringLiteral("SetTime"), [](const QDBusMessage &message) {
        return message.createErrorReply(QStringLiteral("org.freedesktop.timedate1.AutomaticTimeSyncEnabled"),
                                        QStringLiteral("Automatic time synchronization is enabled"));
    });
    m_daemon->onCall(QStringLiteral("SetNTP"), [this](const QDBusMessage &message) {
        m_isWanted = false; // it took too long
        return message.createReply();
    });
    QVERIFY(!set(1700000000));
    QCOMPARE(m_daemon->calls(), (QStringList{QStringLiteral("SetTime"), QStringLiteral("SetNTP")}));
    // A daemon that was started too slowly is not asked at all.
    QVERIFY(!set(1700000000));
    QCOMPARE(m_daemon->calls().size(), 2);
}

void TestLinuxClock::refusedTimeIsToldOnce()
{
    QVERIFY(m_daemon->publish(m_bus->address(), timedate()));
    m_daemon->onCall(QStringLiteral("SetTime"), [](const QDBusMessage &message) {
        return message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("not authorised"));
    });
    expectMessage(QStringLiteral("the clock stays as it is: not authorised"));
    QVERIFY(!set(1700000000));
}

void TestLinuxClock::impossibleTimesAreNotAsked()
{
    QVERIFY(m_daemon->publish(m_bus->address(), timedate()));
    QVERIFY(!set(-1));
    QVERIFY(!set(0x80000000LL));
    QVERIFY(m_daemon->calls().isEmpty());
}

void TestLinuxClock::nobodyThere()
{
    expectMessage(QStringLiteral("the clock stays as it is"));
    QVERIFY(!set(1700000000));
    // No bus either.
    m_connection = std::make_unique<Bus>(QStringLiteral("unix:path=/nonexistent/bus"));
    expectMessage(QStringLiteral("there is no message bus"));
    m_connection->open();
    expectMessage(QStringLiteral("the clock stays as it is: there is no bus"));
    QVERIFY(!set(1700000000));
}

void TestLinuxClock::deviceRestarts()
{
    QVERIFY(m_daemon->publish(m_bus->address(), QStringLiteral("org.freedesktop.login1")));
    QVariantList arguments;
    m_daemon->onCall(QStringLiteral("Reboot"), [&arguments](const QDBusMessage &message) {
        arguments = message.arguments();
        return message.createReply();
    });
    Power power(m_connection.get());
    power.reboot();
    QTRY_COMPARE(m_daemon->calls(), QStringList{QStringLiteral("Reboot")});
    QCOMPARE(arguments, QVariantList{false});
}

void TestLinuxClock::deviceDoesNotRestart()
{
    expectMessage(QStringLiteral("the device does not restart"));
    QVERIFY(m_daemon->publish(m_bus->address(), QStringLiteral("org.freedesktop.login1")));
    bool wasAsked = false;
    m_daemon->onCall(QStringLiteral("Reboot"), [&wasAsked](const QDBusMessage &message) {
        wasAsked = true;
        return message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("not authorised"));
    });
    Power power(m_connection.get());
    power.reboot();
    QTRY_VERIFY(wasAsked);
    // What is asked next is answered next.
    bool isAnswered = false;
    ask(m_connection->connection(),
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.login1"),
                                       QStringLiteral("/org/freedesktop/login1"), QString(),
                                       QStringLiteral("Get")),
        this, [&isAnswered](const QDBusMessage &) { isAnswered = true; });
    QTRY_VERIFY(isAnswered);
}

PANEL_TEST_MAIN(TestLinuxClock)
#include "test_linux_clock.moc"
