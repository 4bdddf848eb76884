#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"
#include "tests/support/layoutcheck.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);

QString en(const char *text)
{
    return QString::fromUtf8(text);
}

/// The screen with Wi-Fi chosen on its Network page.
class WifiScreen : public ScreenFixture
{
public:
    WifiScreen(const QSize &size, bool chinese) : ScreenFixture(plugin, size), m_chinese(chinese)
    {
        HmiSimulator::setDelays(5);
        HmiSimulator::setLanguage(chinese ? HMI::SystemSet::CHINESE : HMI::SystemSet::ENGLISH);
        open();
        tapMenu(text("Network", "网络设置"));
        tapText(text("Wi-Fi", "无线网络"));
        HmiSimulator::waitIdle();
        Operator::settle();
    }

    QString text(const char *english, const char *chinese) const { return en(m_chinese ? chinese : english); }
    void toWifi() { tapText(text("Wi-Fi Settings", "点击进入WLAN设置")); }
    QQuickItem *page() const { return card("QSP::CardWifi"); }
    QQuickItem *part(const char *alias) const { return page()->property(alias).value<QQuickItem *>(); }
    QQuickItem *titleBar() const { return root()->property("titleBar").value<QQuickItem *>(); }
    /// The innermost arrow in the title bar that can be tapped.
    QQuickItem *arrow() const { return Operator::allByClass(titleBar(), "QSP::BeepButton").value(0); }
    void scan() const
    {
        Operator::tap(part("scanButton"));
        HmiSimulator::waitIdle();
        Operator::settle();
    }
    QQuickItem *row(const QString &name) const
    {
        return Operator::ancestorOf(Operator::byText(part("list"), name), "QSP::WifiRow");
    }
    QQuickItem *dialogBody() const { return Operator::byClass(glass(), "QSP::WifiPasswordBody"); }
    QStringList dialogTexts() const
    {
        return dialogBody() ? Operator::visibleTexts(dialogBody()) : QStringList();
    }

private:
    bool m_chinese;
};

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
    void everyStateHasItsRoom_data();
    void everyStateHasItsRoom();

private:
    static void addSizes();
};

void TestWifi::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestWifi::addSizes()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("chinese");
    for (const QSize &size :
         {QSize(1024, 600), QSize(800, 480), QSize(1280, 800), QSize(480, 800), QSize(600, 1024)}) {
        QTest::addRow("%dx%d-en", size.width(), size.height()) << size << false;
        QTest::addRow("%dx%d-zh", size.width(), size.height()) << size << true;
    }
}

void TestWifi::thereAndBack_data()
{
    addSizes();
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
    addSizes();
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
    screen.tapText(screen.text("Connect", "连接"));
    HmiSimulator::waitIdle();
    Operator::settle();
    QVERIFY(screen.dialogTexts().contains(screen.text("Wrong password", "密码错误")));

    QQuickItem *input = Operator::byClass(screen.dialogBody(), "QQuickTextInput");
    Operator::tap(input);
    QMetaObject::invokeMethod(input, "selectAll");
    Operator::type(screen.window(), en("torque55Nm"));
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

void TestWifi::everyStateHasItsRoom_data()
{
    addSizes();
}

void TestWifi::everyStateHasItsRoom()
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

PANEL_TEST_MAIN(TestWifi)

#include "test_wifi.moc"
