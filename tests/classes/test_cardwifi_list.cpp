#include "tests/classes/wifiscene.h"

#include <QtGui/QGuiApplication>

using QSP::CardWifi;

/// Scanning, the list and the reset.
class TestCardWifiList : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void sizes_data();
    void sizes();
    void opensWithTheJoinedNetwork();
    void scanFillsTheList();
    void nullListEmptiesTheList();
    void joinedNetworkIsListedOnce();
    void joinedElsewhere();
    void namesAreBytes();
    void emptyNameOfTheJoinedNetwork();
    void signalOfTheJoinedNetwork();
    void nothingNewRepaintsNothing();
    void resetForgetsAndScans();
    void resetWhileScanning();
    void resetReachesTheNetworkCard();
    void resultAfterTheScreenIsGone();
};

void TestCardWifiList::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiList::sizes_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("font");
    QTest::addColumn<int>("title");
    QTest::newRow("1024x600") << QSize(1024, 600) << 48 << 20 << 71;
    QTest::newRow("800x480") << QSize(800, 480) << 37 << 15 << 56;
    QTest::newRow("1280x800") << QSize(1280, 800) << 60 << 25 << 89;
    QTest::newRow("480x800") << QSize(480, 800) << 48 << 20 << 56;
    QTest::newRow("600x1024") << QSize(600, 1024) << 48 << 20 << 72;
}

void TestCardWifiList::sizes()
{
    QFETCH(QSize, screen);
    QFETCH(int, row);
    QFETCH(int, font);
    QFETCH(int, title);
    const WifiScene scene(screen);
    const CardWifi *card = WifiScene::wifi();
    QCOMPARE(card->rowHeight(), row);
    QCOMPARE(card->fontSize(), font);
    QCOMPARE(card->titleHeight(), title);
    QCOMPARE(card->height(), qreal(screen.height() - 20 - title));
    QCOMPARE(card->background()->size(), card->size());
    QCOMPARE(scene.resetButton()->size(), QSizeF(qRound(row * 0.75 * 20.0 / 9.0), qRound(row * 0.75)));
    const QQuickItem *image = WifiScene::part("scanButtonImage");
    const QQuickItem *button = WifiScene::scanButton();
    QCOMPARE(button->mapRectToScene(QRectF(QPointF(), button->size())),
             image->mapRectToScene(QRectF(QPointF(), image->size())).adjusted(-10, -10, 10, 10));
    QCOMPARE(WifiScene::part("nearWlanTxt"), WifiScene::part("nearbyWlanText"));
}

void TestCardWifiList::opensWithTheJoinedNetwork()
{
    const WifiScene scene;
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QCOMPARE(Operator::visibleTexts(WifiScene::wifi()),
             QStringList({"Connected Wi-Fi", "Reset", "Works Hall", "Nearby Wi-Fi"}));
    QCOMPARE(CardWifi::getSsid(), QStringLiteral("Works Hall"));
    QVERIFY(CardWifi::isConnected());
    // Looking at the page asks the panel for nothing.
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardWifiList::scanFillsTheList()
{
    const WifiScene scene;
    QSignalSpy scanning(WifiScene::wifi(), &CardWifi::isScanningChanged);
    Operator::tap(WifiScene::scanButton());
    QCOMPARE(Journal::callsButBeeps(), QStringList(QStringLiteral("scanWifi()")));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
    QVERIFY(WifiScene::report("scanWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QCOMPARE(scanning.size(), 2);
    // In the order in which they came.
    QCOMPARE(WifiScene::listed(), WifiScene::neighbours());
    QCOMPARE(WifiScene::wifi()->networks().size(), 9);
    const QQuickItem *row = scene.row(QStringLiteral("Maintenance"));
    QCOMPARE(row->height(), 48.0);
    QCOMPARE(row->width(), WifiScene::part("list")->width());
    const QQuickItem *text = Operator::byText(const_cast<QQuickItem *>(row), QStringLiteral("Maintenance"));
    QCOMPARE(text->x(), 48.0 * 16.0 / 13.0);
    QCOMPARE(text->property("font").value<QFont>().pixelSize(), 20);
}

void TestCardWifiList::nullListEmptiesTheList()
{
    const WifiScene scene;
    scene.scan();
    QVERIFY(!WifiScene::listed().isEmpty());
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.nullList = true; });
    scene.scan();
    QCOMPARE(WifiScene::listed(), QStringList());
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall"));
}

void TestCardWifiList::joinedNetworkIsListedOnce()
{
    const WifiScene scene;
    scene.scan();
    QVERIFY(!WifiScene::listed().contains(QStringLiteral("Works Hall")));
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall"));
    QCOMPARE(WifiScene::part("list")->height(), 8 * 48.0);
}

void TestCardWifiList::joinedElsewhere()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::joinNetwork("Maintenance");
    WifiScene::network()->updateWifiStatus();
    QCOMPARE(WifiScene::current(), QStringLiteral("Maintenance"));
    QVERIFY(WifiScene::listed().contains(QStringLiteral("Works Hall")));
    QVERIFY(!WifiScene::listed().contains(QStringLiteral("Maintenance")));

    HmiSimulator::leaveNetwork();
    WifiScene::network()->updateWifiStatus();
    QVERIFY(WifiScene::current().isNull());
    QCOMPARE(WifiScene::listed().size(), 9);
    // The other rows keep their places: the list does not move up.
    HmiSimulator::joinNetwork("Works Hall");
    const qreal y = WifiScene::part("list")->y();
    WifiScene::wifi()->updateCurrentWifi();
    Operator::settle();
    QCOMPARE(WifiScene::part("list")->y(), y);

    // Each opening of the screen looks anew.
    HmiSimulator::joinNetwork("Warehouse");
    WifiScene::root()->setVisible(false);
    WifiScene::root()->setVisible(true);
    QCOMPARE(WifiScene::current(), QStringLiteral("Warehouse"));
}

void TestCardWifiList::namesAreBytes()
{
    const std::string wide(32, 'W');
    HmiSimulator::setNetworks({{"\xD7\xB0\xC5\xE4\xCF\xDF", "", 79},
                               {wide + "Q", "", 40},
                               {"", "", 39},
                               {"two\nlines\tof\x1btext", "", 80},
                               {"שלום", "", 60},
                               {"<img src='x'>", "", 255}});
    const WifiScene scene;
    scene.scan();
    const QString bad(QChar::ReplacementCharacter);
    QStringList names = WifiScene::listed();
    QCOMPARE(names, QStringList({QStringLiteral("装配线"), QString(32, QLatin1Char('W')),
                                 "two" + bad + "lines" + bad + "of" + bad + "text", QStringLiteral("שלום"),
                                 QStringLiteral("<img src='x'>")}));
    QCOMPARE(WifiScene::wifi()->networks().size(), 6);
    QCOMPARE(WifiScene::wifi()->networks()[1].ssid[32], '\0');
    const auto rows = Operator::allByClass(WifiScene::part("list"), "QSP::WifiRow");
    QCOMPARE(rows.size(), 6);
    const QVector<int> bars{3, 2, 1, 4, 3, 4};
    for (int i = 0; i < rows.size(); ++i) {
        QCOMPARE(Operator::byClass(rows[i], "QQuickImage")->property("source").toUrl(),
                 QUrl(QStringLiteral("qrc:/setting/icons/%1@2x.png").arg(bars[i])));
        const auto texts = Operator::allByClass(rows[i], "QQuickText");
        QCOMPARE(texts.size(), 1);
        QVERIFY(texts[0]->x() + texts[0]->width() <= rows[i]->width());
        QVERIFY(texts[0]->property("contentWidth").toReal() <= texts[0]->width());
        QVERIFY(texts[0]->property("lineCount").toInt() <= 1);
    }

    // The joined one is never read as GB2312.
    HmiSimulator::joinNetwork("\xD7\xB0\xC5\xE4\xCF\xDF");
    WifiScene::wifi()->updateCurrentWifi();
    QCOMPARE(WifiScene::current(), QStringLiteral("\u05F0") + bad.repeated(4));
    QVERIFY(!WifiScene::listed().contains(QStringLiteral("装配线")));
}

void TestCardWifiList::emptyNameOfTheJoinedNetwork()
{
    const WifiScene scene;
    // While scanning the name may be unknown for a moment: nothing changes.
    Operator::tap(WifiScene::scanButton());
    HmiSimulator::joinNetwork("");
    WifiScene::wifi()->updateCurrentWifi();
    QCOMPARE(WifiScene::current(), QStringLiteral("Works Hall"));
    QVERIFY(WifiScene::report("scanWifi"));
    QVERIFY(WifiScene::current().isNull());
    QVERIFY(!WifiScene::part("current")->isVisible());
    QCOMPARE(WifiScene::listed().size(), 9);
}

void TestCardWifiList::signalOfTheJoinedNetwork()
{
    const WifiScene scene;
    const auto icon = [] {
        return Operator::byClass(WifiScene::part("current"), "QQuickImage")
            ->property("source")
            .toUrl()
            .fileName();
    };
    const QVector<QPair<int, int>> steps{{80, 4}, {79, 3}, {40, 2}, {39, 1},
                                         {60, 3}, {0, 3},  {-5, 3}, {100, 4}};
    for (const auto &step : steps) {
        HmiSimulator::joinNetwork("Elsewhere", step.first);
        QMetaObject::invokeMethod(WifiScene::wifi(), "updateSignalStrength");
        QCOMPARE(icon(), QStringLiteral("%1@2x.png").arg(step.second));
    }
}

void TestCardWifiList::nothingNewRepaintsNothing()
{
    const WifiScene scene;
    HmiSimulator::joinNetwork("Elsewhere", 70);
    scene.scan();
    WifiScene::wifi()->updateCurrentWifi();
    Operator::settle(100);
    const auto itemCount = [] {
        return Operator::items(WifiScene::wifi(), [](QQuickItem *) { return true; }).size();
    };
    const int items = itemCount();
    const int children = WifiScene::wifi()->findChildren<QObject *>().size();
    QSignalSpy frames(scene.window(), &QQuickWindow::frameSwapped);
    for (int i = 0; i < 10000; ++i)
        WifiScene::wifi()->updateCurrentWifi();
    Operator::settle(100);
    QCOMPARE(frames.size(), 0);
    QCOMPARE(itemCount(), items);
    QCOMPARE(WifiScene::wifi()->findChildren<QObject *>().size(), children);
}

void TestCardWifiList::resetForgetsAndScans()
{
    const WifiScene scene;
    scene.scan();
    HmiSimulator::clearJournal();
    Operator::tap(scene.resetButton());
    QVERIFY(Journal::callsButBeeps().contains(QStringLiteral("resetWifi()")));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Scanning);
    QVERIFY(WifiScene::current().isNull());
    QCOMPARE(WifiScene::listed(), QStringList());
    QVERIFY(WifiScene::report("resetWifi"));
    QCOMPARE(WifiScene::wifi()->state(), CardWifi::Idle);
    QCOMPARE(WifiScene::listed().size(), 9);
    QVERIFY(WifiScene::current().isNull());
}

void TestCardWifiList::resetWhileScanning()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(WifiScene::scanButton());
    Operator::tap(scene.resetButton());
    QCOMPARE(Journal::calls("resetWifi"), QStringList());
    emit WifiScene::wifi()->wifiReset();
    QCOMPARE(Journal::calls("resetWifi"), QStringList());
    QCOMPARE(WifiScene::listed(), QStringList());
    QVERIFY(WifiScene::report("scanWifi"));
    QCOMPARE(WifiScene::listed(), WifiScene::neighbours());
}

void TestCardWifiList::resetReachesTheNetworkCard()
{
    const WifiScene scene;
    QSignalSpy reset(WifiScene::network(), &QSP::CardNetwork::wifiReset);
    Operator::tap(scene.resetButton());
    QCOMPARE(reset.size(), 1);
}

void TestCardWifiList::resultAfterTheScreenIsGone()
{
    {
        const WifiScene scene;
        Operator::tap(WifiScene::scanButton());
    }
    QVERIFY(WifiScene::report("scanWifi"));
    QVERIFY(!WifiScene::root());
}

PANEL_TEST_MAIN(TestCardWifiList)

#include "test_cardwifi_list.moc"
