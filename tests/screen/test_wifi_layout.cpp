#include "tests/screen/wifiscreen.h"
#include "tests/support/layoutcheck.h"

#include <QtCore/QDir>
#include <QtGui/QGuiApplication>

namespace {

QString en(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

/// Every state of the Wi-Fi page at five sizes in both languages: no text is cut
/// off or in another's way. The pictures stay in the build directory, for people to look at.
class TestWifiLayout : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void everyStateHasItsRoom_data();
    void everyStateHasItsRoom();
};

void TestWifiLayout::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestWifiLayout::everyStateHasItsRoom_data()
{
    WifiScreen::addSizes();
}

void TestWifiLayout::everyStateHasItsRoom()
{
    QFETCH(QSize, size);
    QFETCH(bool, chinese);
    WifiScreen screen(size, chinese);
    const QDir pictures(QDir::current().filePath(QStringLiteral("pictures/wifi-") +
                                                 QString::fromLatin1(QTest::currentDataTag())));
    QVERIFY(pictures.mkpath(QStringLiteral(".")));
    int number = 0;
    const auto look = [&](const char *state) {
        Operator::settle(30);
        const QString name =
            QStringLiteral("%1-%2.png").arg(++number, 2, 10, QLatin1Char('0')).arg(QLatin1String(state));
        QVERIFY(Operator::picture(screen.window()).save(pictures.filePath(name)));
        const QStringList faults =
            LayoutCheck::faults(screen.dialogBody() ? screen.dialogBody() : screen.glass());
        QVERIFY2(faults.isEmpty(),
                 qPrintable(name + QStringLiteral(": ") + faults.join(QStringLiteral("\n  "))));
    };

    screen.toWifi();
    look("before-a-scan");
    HmiSimulator::setManual(true);
    Operator::tap(screen.part("scanButton"));
    look("scanning");
    HmiSimulator::setManual(false);
    HmiSimulator::waitIdle();
    Operator::settle();
    look("list");
    Operator::tap(screen.row(en("Maintenance")));
    look("password");
    Operator::tap(Operator::byClass(screen.dialogBody(), "QQuickTextInput"));
    look("keyboard");
    Operator::type(screen.window(), en("abc"));
    screen.endTyping();
    screen.tapText(screen.text("Show Password", "显示密码"));
    look("shown");
    for (const int report : {4, 3, 0}) {
        HmiSimulator::change([report](HmiSimulator::Panel &panel) { panel.faults.connect = {1, report}; });
        HmiSimulator::setManual(true);
        screen.tapText(screen.text("Connect", "连接"));
        HmiSimulator::fireNext("connectWifi");
        look("connecting");
        HmiSimulator::setManual(false);
        HmiSimulator::waitIdle();
        Operator::settle();
        look("failed");
    }
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.connect.clear(); });
}

PANEL_TEST_MAIN(TestWifiLayout)

#include "test_wifi_layout.moc"
