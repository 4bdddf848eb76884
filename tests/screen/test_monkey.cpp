#include "tests/screen/monkeylaps.h"

#include <QtGui/QGuiApplication>

/// However it is treated, the screen says nothing and keeps nothing.
class TestMonkey : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase() { Inventory::watch(); }
    void leavesEverythingAsItWas_data();
    void leavesEverythingAsItWas();
};

void TestMonkey::leavesEverythingAsItWas_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("chinese");
    QTest::addColumn<quint32>("seed");
    QTest::newRow("wide") << QSize(1024, 600) << false << 20U;
    QTest::newRow("small") << QSize(800, 480) << true << 3U;
    QTest::newRow("narrow") << QSize(480, 800) << false << 7U;
    QTest::newRow("tall") << QSize(600, 1024) << true << 5U;
    QTest::newRow("compact") << QSize(480, 272) << false << 11U;
}

void TestMonkey::leavesEverythingAsItWas()
{
    constexpr int actions = 500;
    constexpr size_t mostHeapGrowth = size_t(200) * 1024;

    QFETCH(QSize, size);
    QFETCH(bool, chinese);
    QFETCH(quint32, seed);
    MonkeyLaps laps(size, chinese, seed);
    // What is built on first need may be built in the first half; the second must add nothing.
    laps.run(actions);
    Inventory before = laps.run(actions);
    Inventory after = laps.run(2 * actions);
    // Caches of the toolkit grow by chance, once; what leaks grows with every lap.
    for (int lap = 0; lap < 2 && after.heapGrowthSince(before) >= mostHeapGrowth; ++lap) {
        before = after;
        after = laps.run(2 * actions);
    }
    const QStringList grown = after.growthSince(before);
    QVERIFY2(grown.isEmpty(), qPrintable(grown.join(QStringLiteral(", "))));
    QCOMPARE(after.openPopups, 0);
    QVERIFY2(after.heapGrowthSince(before) < mostHeapGrowth,
             qPrintable(QString::number(after.heapGrowthSince(before))));
}

PANEL_TEST_MAIN(TestMonkey)

#include "test_monkey.moc"
