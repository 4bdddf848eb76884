#include "tests/linux/harness/sandbox.h"
#include "tests/linux/networkmanager/watchedapplication.h"
#include "tests/linux/paneldirectory.h"
#include "tests/linux/text.h"
#include "tests/screen/networkpage.h"

#include "meyersingleton.h"

#include <QtCore/QElapsedTimer>

using HMI::SystemSet;

namespace {

// Of a frame.
constexpr qint64 g_waitLimit = 16000000;

QStringList tell(const QString &words)
{
    return Sandbox::tell(words.split(QLatin1Char(' '))).value_or(QStringList());
}

QString kernelAddress()
{
    return tell(text("addresses lan0")).value(0).section(QLatin1Char('/'), 0, 0);
}

WatchedApplication *application()
{
    return static_cast<WatchedApplication *>(QCoreApplication::instance());
}

} // namespace

/// The screen over a real daemon, operated while that one does not answer.
class TestScreen : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void daemonDoesNotAnswer_data();
    void daemonDoesNotAnswer();

private:
    /// Goes once through what an operator may do.
    void lap(NetworkPage *page, bool changes);

    void change(NetworkPage *page);
    /// Whether LAN0 has the address that was typed last, or a lease if that was chosen last, and shows it.
    bool isShown(NetworkPage *page) const;

    PanelDirectory m_panel;
    int m_edits = 0;
    QString m_typed; ///< last, unless nothing was
};

void TestScreen::initTestCase()
{
    QVERIFY(Sandbox::isAround());
    m_panel.put(text("/etc/panelsettings/linux.conf"),
                "[adapters]\nLAN0 = lan0\nLAN1 = lan1\nWIFI = none\nMOBILE_4G = none\n");
    m_panel.put(text("/sys/class/backlight/lcd/max_brightness"), "255\n");
    m_panel.put(text("/sys/class/backlight/lcd/brightness"), "200\n");
    qputenv("PANELSETTINGS_ROOT", m_panel.path().toLocal8Bit());
    // This process is given the service of a real panel in place of the simulator.
    QCOMPARE(MeyerSingleton<SystemSet>::instance().getAllNIC(), SystemSet::LAN0 | SystemSet::LAN1);
}

void TestScreen::init()
{
    beginWatch();
    // A machine that does much else holds a lap up for longer than the daemon may think about a request.
    allowMessage(text("the settings of LAN0 wait for the daemon"));
    m_typed.clear();
    SystemSet &panel = MeyerSingleton<SystemSet>::instance();
    QTRY_VERIFY_WITH_TIMEOUT(panel.getIp(SystemSet::LAN0) != 0, 60000);
    panel.setIp(SystemSet::LAN0, 0xC0A8324D, true);
    panel.setSubnetMask(SystemSet::LAN0, 0xFFFFFF00, true);
    panel.setGateway(SystemSet::LAN0, 0xC0A83201, true);
}

void TestScreen::daemonDoesNotAnswer_data()
{
    QTest::addColumn<QString>("begin");
    QTest::addColumn<QString>("end");
    QTest::addColumn<int>("time");
    QTest::addColumn<bool>("changes"); // without a daemon each of them is refused, and told
    QTest::newRow("frozen") << "nm freeze"
                            << "nm thaw" << 10000 << true;
    QTest::newRow("killed") << "nm kill"
                            << "nm start" << 2000 << false;
    QTest::newRow("restarted") << "nm stop"
                               << "nm start" << 2000 << false;
    QTest::newRow("bus frozen") << "bus freeze"
                                << "bus thaw" << 2000 << true;
}

void TestScreen::lap(NetworkPage *page, bool changes)
{
    ScreenFixture &screen = page->screen();
    screen.tapMenu(text("General"));
    Operator::tap(Operator::byClass(screen.root(), "QSP::BrightButton"));
    screen.tapMenu(text("Network"));
    page->select(text("LAN1"));
    page->select(text("LAN0"));
    if (changes)
        change(page);
    screen.tapMenu(text("Language"));
    screen.tapMenu(text("Network"));
}

void TestScreen::change(NetworkPage *page)
{
    page->tapToggle(text("Static IP"));
    QQuickItem *address = page->addressOf(text("IP Address"));
    if (!address->isEnabled())
        return;
    page->edit(address, 3, text("7%1").arg(m_edits++ % 10));
    Operator::key(page->window(), Qt::Key_Return);
    m_typed = page->address(text("IP Address"));
    Operator::settle();
}

bool TestScreen::isShown(NetworkPage *page) const
{
    // On the wire the leases are those from 100 on, and what is typed here is less.
    constexpr int firstLease = 100;
    page->select(text("LAN1"));
    page->select(text("LAN0"));
    const QString address = kernelAddress();
    const bool isLease = address.section(QLatin1Char('.'), 3).toInt() >= firstLease;
    const bool isStatic = page->addressOf(text("IP Address"))->isEnabled();
    if (isLease == isStatic || (isStatic && !m_typed.isEmpty() && address != m_typed))
        return false;
    return !address.isEmpty() && page->address(text("IP Address")) == address;
}

void TestScreen::daemonDoesNotAnswer()
{
    QFETCH(const QString, begin);
    QFETCH(const QString, end);
    QFETCH(const int, time);
    QFETCH(const bool, changes);
    NetworkPage page;
    page.select(text("LAN0"));
    QTRY_COMPARE_WITH_TIMEOUT(page.address(text("IP Address")), kernelAddress(), 30000);
    // All that is read and made only once, with either kind of addresses.
    for (int i = 0; i < 2; ++i)
        lap(&page, changes);
    // Who waits for the daemon waits each time; once the machine itself may have held the process up.
    qint64 wait = g_waitLimit;
    for (int i = 0; i < 3 && wait >= g_waitLimit && !QTest::currentTestFailed(); ++i) {
        tell(begin);
        application()->forget();
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < time && !QTest::currentTestFailed())
            lap(&page, changes);
        wait = application()->longestWait();
        qInfo("the longest wait took %lld us", wait / 1000);
        tell(end);
        // And then it shows what is so, to who looks once the service knows it.
        QTRY_VERIFY_WITH_TIMEOUT(MeyerSingleton<SystemSet>::instance().getIp(SystemSet::LAN0) != 0, 30000);
        QTRY_VERIFY_WITH_TIMEOUT(isShown(&page), 60000);
    }
    QVERIFY2(wait < g_waitLimit, qPrintable(text("waited for %1 us").arg(wait / 1000)));
}

int main(int argc, char **argv)
{
    PanelTest::prepareEnvironment();
    WatchedApplication application(argc, argv);
    PanelTest::prepareApplication();
    TestScreen test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_screen.moc"
