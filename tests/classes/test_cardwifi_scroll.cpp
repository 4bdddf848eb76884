#include "tests/classes/wifiscene.h"

#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickflickable_p.h>

using QSP::CardWifi;

namespace {

QQuickFlickable *page()
{
    return WifiScene::root()->property("cardPool").value<QQuickFlickable *>();
}

} // namespace

/// Long lists, and lists that arrive under a finger.
class TestCardWifiScroll : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void pageGrowsWithTheList();
    void longListIsCheap();
    void rebuildingLeavesNothingBehind();
    void scrollStaysWhereItIs();
    void listWaitsForTheFinger();
    void fingerAndHiddenPage();
};

void TestCardWifiScroll::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiScroll::pageGrowsWithTheList()
{
    HmiSimulator::setNetworks(HmiSimulator::crowd(40));
    const WifiScene scene;
    scene.scan();
    const QQuickItem *column = WifiScene::part("layout");
    QVERIFY(column->height() > 40 * 48.0);
    QCOMPARE(WifiScene::wifi()->height(), std::floor(column->height() + 7.0));
    HmiSimulator::setNetworks({});
    scene.scan();
    QCOMPARE(WifiScene::wifi()->height(), 600.0 - 20.0 - 71.0);
}

void TestCardWifiScroll::longListIsCheap()
{
    const WifiScene scene;
    const auto contents = [] {
        return Operator::items(WifiScene::part("list"),
                               [](QQuickItem *item) { return item->inherits("QSP::BeepButton"); })
            .size();
    };
    HmiSimulator::setNetworks(HmiSimulator::crowd(100));
    scene.scan();
    const int few = contents();
    HmiSimulator::setNetworks(HmiSimulator::crowd(1000));
    scene.scan();
    QCOMPARE(contents(), few);
    QCOMPARE(WifiScene::wifi()->networks().size(), 1000);
    QCOMPARE(Operator::allByClass(WifiScene::part("list"), "QSP::WifiRow").size(), 1000);

    // Each row has its contents when it is scrolled to, and only then.
    QQuickFlickable *pool = page();
    for (const qreal y : {3000.0, 47000.0, 20000.0, 0.0}) {
        pool->setContentY(y);
        const int first = static_cast<int>((y - WifiScene::part("list")->y()) / 48.0);
        for (int i = qMax(0, first); i < first + 11; ++i) {
            QQuickItem *row = WifiScene::wifi()->networks()[i].item;
            QCOMPARE(Operator::visibleTexts(row).size(), 1);
        }
        QVERIFY(contents() < 50);
    }
}

void TestCardWifiScroll::rebuildingLeavesNothingBehind()
{
    const WifiScene scene;
    HmiSimulator::setNetworks(HmiSimulator::crowd(50));
    scene.scan();
    const int objects = WifiScene::wifi()->findChildren<QObject *>().size();
    const int items = Operator::items(WifiScene::wifi(), [](QQuickItem *) { return true; }).size();
    for (int i = 0; i < 20; ++i) {
        scene.scan();
        WifiScene::wifi()->onWifiReset();
        QVERIFY(WifiScene::report("resetWifi"));
    }
    QCOMPARE(WifiScene::wifi()->findChildren<QObject *>().size(), objects);
    QCOMPARE(Operator::items(WifiScene::wifi(), [](QQuickItem *) { return true; }).size(), items);
}

void TestCardWifiScroll::scrollStaysWhereItIs()
{
    HmiSimulator::setNetworks(HmiSimulator::crowd(60));
    const WifiScene scene;
    scene.scan();
    QQuickFlickable *pool = page();
    QTest::mousePress(scene.window(), Qt::LeftButton, Qt::NoModifier, {600, 500});
    for (int y = 490; y >= 200; y -= 10)
        QTest::mouseMove(scene.window(), {600, y}, 2);
    QTest::mouseRelease(scene.window(), Qt::LeftButton, Qt::NoModifier, {600, 200});
    QTRY_VERIFY(!pool->isMoving());
    const qreal y = pool->contentY();
    QVERIFY(y > 100.0);
    WifiScene::wifi()->onClickScanWifi();
    QVERIFY(WifiScene::report("scanWifi"));
    Operator::settle();
    QCOMPARE(pool->contentY(), y);
}

void TestCardWifiScroll::listWaitsForTheFinger()
{
    const WifiScene scene;
    scene.scan();
    QQuickItem *row = scene.row(QStringLiteral("Works Hall Guests"));
    const QPoint place = Operator::centerOf(row);
    WifiScene::wifi()->onClickScanWifi();
    HmiSimulator::setNetworks({{"Trap", "", 90}, {"Trap too", "", 90}, {"Works Hall Guests", "", 90}});
    HmiSimulator::joinNetwork("Maintenance");

    // The tap is for the network that the operator saw, however late he lifts the finger.
    QTest::mousePress(scene.window(), Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(WifiScene::report("scanWifi"));
    WifiScene::network()->updateWifiStatus();
    Operator::settle(300);
    QCOMPARE(WifiScene::listed(), WifiScene::neighbours());
    QTest::mouseRelease(scene.window(), Qt::LeftButton, Qt::NoModifier, place);
    Operator::settle();
    QCOMPARE(Journal::calls("connectWifi"),
             QStringList(QStringLiteral(R"(connectWifi("Works Hall Guests", ""))")));
    QCOMPARE(WifiScene::wifi()->networks().size(), 3);
}

void TestCardWifiScroll::fingerAndHiddenPage()
{
    const WifiScene scene;
    WifiScene::wifi()->onClickScanWifi();
    QTest::mousePress(scene.window(), Qt::LeftButton, Qt::NoModifier, {600, 500});
    QVERIFY(WifiScene::report("scanWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
    WifiScene::root()->close();
    QTRY_COMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QCOMPARE(WifiScene::wifi()->networks().size(), 9);
    QTest::mouseRelease(scene.window(), Qt::LeftButton, Qt::NoModifier, {600, 500});
}

PANEL_TEST_MAIN(TestCardWifiScroll)

#include "test_cardwifi_scroll.moc"
