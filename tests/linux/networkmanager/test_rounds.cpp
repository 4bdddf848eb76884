#include "tests/linux/networkmanager/sandboxscene.h"
#include "tests/linux/networkmanager/usage.h"

#include "linux/nmnames.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtDBus/QDBusArgument>

#include <future>

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

// As many rounds as hold every operation at least once, and end as they began.
constexpr int g_turn = 50;
// In bytes: answers that are on their way at the moment of looking.
constexpr qint64 g_heapAllowance = 32 << 10;
constexpr qint64 g_residentAllowance = 1 << 20;

int rounds()
{
    bool isNumber = false;
    const int asked = qEnvironmentVariableIntValue("PANEL_ROUNDS", &isNumber);
    return isNumber ? asked : 200;
}

HMI::IP operator+(const HMI::IP &address, int step)
{
    return HMI::IP(quint32(address) + quint32(step));
}

} // namespace

/// A panel that is used for years: nothing grows, neither in it nor in the daemon.
class TestRounds : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nothingGrows();

private:
    struct Held {
        Usage process;
        int objects = 0;       ///< of the service's worker
        int daemonObjects = 0; ///< all that the daemon tells of
        int profiles = 0;
        int profileFiles = 0;
    };

    Held held() const;
    int objects() const;
    void turn(int first);
    void changeAll(int round);
    void ping();
    void takeLeaseAndBack();
    void switchOffAndOn();
    void tell(const char *when, const Held &held) const;

    std::unique_ptr<SandboxScene> m_scene;
};

void TestRounds::init()
{
    beginWatch();
    QVERIFY(Sandbox::isAround());
    m_scene = std::make_unique<SandboxScene>();
    SandboxScene::allowPing();
    m_scene->startService();
    QVERIFY(m_scene->waitForDaemon());
}

void TestRounds::cleanup()
{
    m_scene.reset();
    endWatch();
}

int TestRounds::objects() const
{
    const auto count = std::make_shared<std::promise<int>>();
    m_scene->service->later(
        [this, count] { count->set_value(m_scene->service->worker().findChildren<QObject *>().size()); });
    return count->get_future().get();
}

TestRounds::Held TestRounds::held() const
{
    const QDBusConnection bus = QDBusConnection::systemBus();
    const QDBusMessage all = bus.call(
        Nm::call(Nm::objects(), QStringLiteral("org.freedesktop.DBus.ObjectManager"), "GetManagedObjects"));
    const QDBusMessage profiles = bus.call(Nm::call(Nm::settingsPath(), Nm::settings(), "ListConnections"));
    Held held;
    held.daemonObjects = qdbus_cast<ManagedObjects>(all.arguments().value(0)).size();
    held.profiles = qdbus_cast<QList<QDBusObjectPath>>(profiles.arguments().value(0)).size();
    held.profileFiles =
        QDir(QStringLiteral("/run/harness/profiles")).entryList(QDir::Files | QDir::Hidden).size();
    held.objects = objects();
    held.process = Usage::now();
    return held;
}

void TestRounds::tell(const char *when, const Held &held) const
{
    qInfo("%s: heap %lld KiB, resident %lld KiB, %d files, %d threads, %d objects; daemon: %d objects, %d "
          "profiles "
          "in %d files",
          when, held.process.heap >> 10, held.process.resident >> 10, held.process.files,
          held.process.threads, held.objects, held.daemonObjects, held.profiles, held.profileFiles);
}

void TestRounds::changeAll(int round)
{
    m_scene->setAddresses(
        {ServiceScene::ip("192.168.50.70") + round % 20, maskOf(24), ServiceScene::ip("192.168.50.1")});
    m_scene->gather(0, [round](Wish &wish) {
        wish.dns = Dns{ServiceScene::ip("9.9.9.0") + round % 250, ServiceScene::ip("8.8.8.8")};
    });
    for (const std::size_t place : {std::size_t(0), std::size_t(1)}) {
        m_scene->gather(place, [=](Wish &wish) { wish.isDefault = int(place) == round % 2; });
        // Not after the time in which an operator would go on.
        m_scene->service->later(
            [this, place] { m_scene->service->worker().network().writer(place)->finish(); });
    }
    QVERIFY(m_scene->waitForWishes());
}

void TestRounds::ping()
{
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan1().live.gateway != 0, 30000);
    const auto answer = std::make_shared<std::promise<bool>>();
    m_scene->service->later([this, answer] {
        m_scene->service->worker().ping(1, [answer](bool answered) { answer->set_value(answered); });
    });
    QVERIFY(answer->get_future().get());
}

void TestRounds::takeLeaseAndBack()
{
    m_scene->forgetReports();
    QVERIFY(m_scene->requestDhcp(true, SystemSet::DHCP_OK));
    QVERIFY(m_scene->requestDhcp(false, SystemSet::DHCP_OK));
    QVERIFY(m_scene->waitForWishes());
}

void TestRounds::switchOffAndOn()
{
    m_scene->enable(false);
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live == Addresses(), 30000);
    m_scene->enable(true);
    QTRY_VERIFY_WITH_TIMEOUT(m_scene->lan0().live.ip != 0, 30000);
    QVERIFY(m_scene->waitForWishes());
}

void TestRounds::turn(int first)
{
    for (int round = first; round < first + g_turn && !QTest::currentTestFailed(); ++round) {
        changeAll(round);
        ping();
        if (round % (g_turn / 2) == 0)
            takeLeaseAndBack();
        if (round % g_turn == 0)
            switchOffAndOn();
    }
}

void TestRounds::nothingGrows()
{
    const int count = rounds();
    turn(0);
    const Held before = held();
    tell("warm", before);
    QElapsedTimer timer;
    timer.start();
    int round = g_turn;
    for (; round < g_turn + count && !QTest::currentTestFailed(); round += g_turn)
        turn(round);
    QVERIFY(!QTest::currentTestFailed());
    qInfo("PANEL_ROUNDS=%d took %lld ms each", round - g_turn, timer.elapsed() / (round - g_turn));
    // What was handled is deleted in the next turn of an event loop, the daemon's too.
    QTRY_VERIFY_WITH_TIMEOUT(held().objects <= before.objects, 30000);
    QTRY_VERIFY_WITH_TIMEOUT(held().daemonObjects <= before.daemonObjects, 30000);
    const Held after = held();
    tell("in the end", after);
    QCOMPARE(after.profiles, before.profiles);
    QCOMPARE(after.profileFiles, before.profileFiles);
    QVERIFY(after.process.files <= before.process.files);
    QVERIFY(after.process.threads <= before.process.threads);
    QVERIFY(after.process.heap <= before.process.heap + g_heapAllowance);
    if (after.process.heap != 0)
        QVERIFY(after.process.resident <= before.process.resident + g_residentAllowance);
}

int main(int argc, char **argv)
{
    Usage::countExactly(argv);
    PanelTest::prepareEnvironment();
    QGuiApplication application(argc, argv);
    PanelTest::prepareApplication();
    TestRounds test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_rounds.moc"
