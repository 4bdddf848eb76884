#include "tests/screen/networkpage.h"
#include "tests/screen/screenatrest.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QGuiApplication>

#include <functional>

namespace {

constexpr std::size_t mostHeapGrowth = std::size_t(200) * 1024;

// A sanitizer takes some ten times as long, and finds what it is there to find in the first rounds.
#ifdef __SANITIZE_ADDRESS__
constexpr int share = 10;
#else
constexpr int share = 1;
#endif

// What a panel does in years: the same thing over and over. Some of it first, for what is built on first need.
void repeat(int warmUp, int times, const std::function<void(int)> &act,
            const std::function<Inventory()> &count)
{
    for (int i = 0; i < warmUp; ++i)
        act(i);
    // Counting builds something on first need, too.
    count();
    const Inventory before = count();
    for (int i = 0; i < times / share; ++i)
        act(i);
    const Inventory after = count();
    const QStringList grown = after.growthSince(before);
    QVERIFY2(grown.isEmpty(), qPrintable(grown.join(QStringLiteral(", "))));
    QVERIFY2(after.heapGrowthSince(before) < mostHeapGrowth,
             qPrintable(QStringLiteral("%1 bytes more").arg(after.heapGrowthSince(before))));
}

// Each tick finds something else than the one before.
void changePanel(int tick)
{
    HmiSimulator::setMobile(tick % 4, tick % 101);
    HmiSimulator::setVpnState(tick % 7);
    if (tick % 3 == 0)
        HmiSimulator::leaveNetwork();
    else
        HmiSimulator::joinNetwork(tick % 3 == 1 ? "Plant" : "Office", tick % 101);
}

void tap(const ScreenFixture &fixture, const char *text)
{
    Operator::awaitFrame(fixture.window());
    Operator::tap(
        Operator::ancestorOf(Operator::byText(fixture.glass(), QLatin1String(text)), "QSP::BeepButton"));
}

// Of a ping, of leases and of a scan.
void askForReports(const ScreenFixture &fixture)
{
    tap(fixture, "Network");
    tap(fixture, "Test");
    const auto leases = fixture.root()->findChildren<QTimer *>(QStringLiteral("leaseRequest"));
    for (QTimer *lease : leases)
        NetworkPage::expire(lease);
    QMetaObject::invokeMethod(fixture.card("QSP::CardNetwork"), "switchToWifiCard");
    QMetaObject::invokeMethod(fixture.card("QSP::CardWifi"), "onClickScanWifi");
}

} // namespace

/// Years of use leave nothing behind.
class TestEndurance : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase() { Inventory::watch(); }
    void init();
    void isOpenedAndClosed();
    void ticks();
    void isDeletedAtAnyMoment();
};

void TestEndurance::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestEndurance::isOpenedAndClosed()
{
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), {1024, 600});
    fixture.open();
    const auto openAndClose = [&fixture](int) {
        fixture.screen()->open();
        QCoreApplication::processEvents();
        fixture.screen()->close();
        QCoreApplication::processEvents();
    };
    repeat(50, 1000, openAndClose, [&fixture] { return inventoryAtRest(fixture); });
}

void TestEndurance::ticks()
{
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), {1024, 600});
    fixture.open();
    // From here on all of them are there.
    inventoryAtRest(fixture);
    const auto timers = timersBelow(fixture.root());
    QVERIFY(timers.size() > 5);
    const auto tickAll = [&timers](int number) {
        changePanel(number);
        for (const QPointer<QTimer> &timer : timers) {
            NetworkPage::expire(timer);
            QCoreApplication::processEvents();
        }
    };
    fixture.screen()->open();
    repeat(200, 10000, tickAll, [&fixture] {
        Inventory held = inventoryAtRest(fixture);
        fixture.screen()->open();
        return held;
    });
    for (const QPointer<QTimer> &timer : timers)
        QVERIFY(timer);
}

void TestEndurance::isDeletedAtAnyMoment()
{
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), {1024, 600});
    fixture.open();
    QRandomGenerator random(1);
    const auto askAndDelete = [&fixture, &random](int) {
        HmiSimulator::setDelays(0);
        HmiSimulator::setManual(true);
        fixture.screen()->open();
        askForReports(fixture);
        QVERIFY(HmiSimulator::pending().size() > 2);
        // Some before the deletion, the others in the middle of it or after.
        for (int before = random.bounded(int(HmiSimulator::pending().size()) + 1); before > 0; --before) {
            HmiSimulator::fireNext();
            QCoreApplication::processEvents();
        }
        if (random.bounded(2) == 0)
            HmiSimulator::setManual(false);
        fixture.rebuild();
        HmiSimulator::setManual(false);
    };
    repeat(20, 200, askAndDelete, [&fixture] {
        Inventory held = inventoryAtRest(fixture);
        fixture.rebuild();
        return held;
    });
}

PANEL_TEST_MAIN(TestEndurance)

#include "test_endurance.moc"
