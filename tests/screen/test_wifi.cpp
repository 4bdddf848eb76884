#include "tests/screen/wifiscreen.h"

#include <QtGui/QGuiApplication>

namespace {

QString en(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

/// The Wi-Fi page as an operator works it, by taps and keys alone.
class TestWifi : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void thereAndBack_data();
    void thereAndBack();
    void arrowGoesWithThePage();
    void joinWithAPassword_data();
    void joinWithAPassword();
};

void TestWifi::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestWifi::thereAndBack_data()
{
    WifiScreen::addSizes();
}

void TestWifi::thereAndBack()
{
    QFETCH(QSize, size);
    QFETCH(bool, chinese);
    WifiScreen screen(size, chinese);
    const bool narrow = size.width() < 800;
    auto *menu = screen.root()->property("menuBar").value<QQuickItem *>();
    for (int visit = 0; visit < 3; ++visit) {
        screen.toWifi();
        QCOMPARE(screen.title(), screen.text("Wi-Fi", "无线网络"));
        QVERIFY(screen.page());
        QVERIFY(!screen.card("QSP::CardNetwork"));
        QVERIFY(screen.arrow());
        // One arrow: on a narrow screen the page's own lies in the place of the menu's.
        const QRectF place = screen.arrow()->mapRectToScene(QRectF(QPointF(), screen.arrow()->size()));
        QCOMPARE(place.x(), narrow ? 0.0 : menu->width() + 20.0);
        QVERIFY(screen.titleBar()->height() >= place.height());
        Operator::tap(screen.arrow());
        Operator::settle();
        QVERIFY(!screen.page());
        QVERIFY(screen.card("QSP::CardNetwork"));
        QCOMPARE(screen.title(), screen.text("Network", "网络设置"));
        // Back to the page, not also on to the menu.
        QCOMPARE(menu->isVisible(), !narrow);
    }
    if (!narrow) {
        QVERIFY(!screen.arrow());
        return;
    }
    Operator::tap(screen.arrow());
    QVERIFY(menu->isVisible());
}

void TestWifi::arrowGoesWithThePage()
{
    WifiScreen screen({1024, 600}, false);
    screen.toWifi();
    QVERIFY(screen.arrow());
    screen.tapMenu(en("Version"));
    QVERIFY(!screen.arrow());
    screen.tapMenu(en("Network"));
    screen.toWifi();
    QVERIFY(screen.arrow());
    Operator::press(screen.arrow());
    QCOMPARE(screen.arrow()->opacity(), 0.6);
    // Slid off, it stays.
    QTest::mouseMove(screen.window(), {900, 500});
    QTest::mouseRelease(screen.window(), Qt::LeftButton, Qt::NoModifier, {900, 500});
    QVERIFY(screen.page());
    QCOMPARE(screen.arrow()->opacity(), 1.0);
    screen.close();
    QVERIFY(!screen.arrow());
    screen.open();
    QVERIFY(!screen.arrow());
    QCOMPARE(screen.title(), en("General"));
}

void TestWifi::joinWithAPassword_data()
{
    WifiScreen::addSizes();
}

void TestWifi::joinWithAPassword()
{
    QFETCH(QSize, size);
    QFETCH(bool, chinese);
    WifiScreen screen(size, chinese);
    screen.toWifi();
    screen.scan();
    Operator::touch(screen.row(en("Maintenance")));
    Operator::settle();
    QVERIFY(screen.dialogBody());

    Operator::tap(Operator::byClass(screen.dialogBody(), "QQuickTextInput"));
    Operator::type(screen.window(), en("wrong"));
    screen.endTyping();
    screen.tapText(screen.text("Connect", "连接"));
    HmiSimulator::waitIdle();
    Operator::settle();
    QVERIFY(screen.dialogTexts().contains(screen.text("Wrong password", "密码错误")));

    QQuickItem *input = Operator::byClass(screen.dialogBody(), "QQuickTextInput");
    Operator::tap(input);
    QMetaObject::invokeMethod(input, "selectAll");
    Operator::type(screen.window(), en("torque55Nm"));
    screen.endTyping();
    screen.tapText(screen.text("Connect", "连接"));
    HmiSimulator::waitIdle();
    Operator::settle();
    HmiSimulator::waitIdle();
    Operator::settle();
    QVERIFY(!screen.dialogBody());
    QCOMPARE(Operator::visibleTexts(screen.part("current")), QStringList(en("Maintenance")));
    QVERIFY(!Operator::visibleTexts(screen.part("list")).contains(en("Maintenance")));
    QVERIFY(HmiSimulator::panel().wifi.connected);
}

PANEL_TEST_MAIN(TestWifi)

#include "test_wifi.moc"
