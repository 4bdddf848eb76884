#include "tests/screen/hosts.h"

#include "simulator/simulator.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

/// The end of the screen in every kind of host and in every state: nothing is said, nothing is written.
class TestHosts : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void endsWithoutAWord_data();
    void endsWithoutAWord();
    void rootEndsBeforeItsHost_data() { addKindsAndStates(); }
    void rootEndsBeforeItsHost();

private:
    static void addRows(const QStringList &kinds, const QStringList &states);
    static void addKindsAndStates();
    /// Leads the operator to where the screen is when it ends.
    static void reach(const Host &host, const QString &state);
    /// What was asked of the panel in the end, but for a brightness that is kept.
    static QStringList lastCalls();
};

void TestHosts::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setDelays(1);
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN0, false);
}

void TestHosts::reach(const Host &host, const QString &state)
{
    if (state == "never shown")
        return;
    host.screen()->open();
    Operator::settle();
    if (state == "clock edited") {
        Operator::tap(Operator::byClass(Operator::byClass(host.root(), "QSP::CardTime"), "QSP::BeepButton"));
        Operator::settle();
        QQuickItem *editor = Operator::ancestorOf(Operator::byText(host.glass(), "OK"), "QQuickPopupItem");
        Operator::tap(Operator::byClass(editor, "QQuickTextInput"));
        return;
    }
    if (state == "plus held") {
        Operator::press(Operator::allByClass(host.root(), "QSP::BrightButton").value(1));
        return;
    }
    for (const char *page : {"Version", "Language", "Network"})
        host.tapText(page);
    if (state == "address edited") {
        Operator::tap(
            Operator::byClass(Operator::byClass(host.root(), "QSP::CardNetwork"), "QQuickTextInput"));
        Operator::type(host.window(), "1");
    } else if (state == "list open") {
        Operator::tap(Operator::byClass(Operator::byClass(host.root(), "QSP::CardNIC"), "QSP::ComboBox"));
        Operator::settle();
    } else if (state == "result shown") {
        host.tapText("Test");
        HmiSimulator::waitIdle();
        QTRY_VERIFY(Operator::byText(host.glass(), "Test successful!"));
    } else if (state == "password typed") {
        host.tapText("Wi-Fi");
        host.tapText("Wi-Fi Settings");
        const QQuickItem *card = Operator::byClass(host.root(), "QSP::CardWifi");
        Operator::tap(card->property("scanButton").value<QQuickItem *>());
        HmiSimulator::waitIdle();
        Operator::settle();
        Operator::tap(Operator::byText(host.root(), "Maintenance"));
        Operator::settle();
        Operator::tap(
            Operator::byClass(Operator::byClass(host.glass(), "QSP::WifiPasswordBody"), "QQuickTextInput"));
        Operator::type(host.window(), "x");
    } else if (state == "closed") {
        host.screen()->close();
    }
}

QStringList TestHosts::lastCalls()
{
    QStringList calls;
    const QStringList made = Journal::callsButBeeps();
    for (const QString &call : made) {
        if (!call.contains(QLatin1String("Bright")))
            calls << call;
    }
    return calls;
}

void TestHosts::addRows(const QStringList &kinds, const QStringList &states)
{
    for (const QString &kind : kinds) {
        for (const QString &state : states)
            QTest::newRow(qPrintable(kind + ", " + state)) << kind << state;
    }
}

void TestHosts::addKindsAndStates()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("state");
    addRows(Host::kinds().mid(0, 2),
            {"never shown", "clock edited", "plus held", "all pages visited", "address edited", "list open",
             "result shown", "password typed", "closed"});
}

void TestHosts::endsWithoutAWord_data()
{
    addKindsAndStates();
    addRows(Host::kinds().mid(2), {"never shown", "address edited", "password typed"});
}

void TestHosts::endsWithoutAWord()
{
    QFETCH(QString, kind);
    QFETCH(QString, state);
    std::unique_ptr<Host> host = Host::make(kind);
    reach(*host, state);
    HmiSimulator::clearJournal();
    const QPointer<QQuickItem> root = host->root();
    host.reset();
    QVERIFY(!root);
    QCoreApplication::processEvents();
    QCOMPARE(lastCalls(), QStringList());
}

void TestHosts::rootEndsBeforeItsHost()
{
    QFETCH(QString, kind);
    QFETCH(QString, state);
    const std::unique_ptr<Host> host = Host::make(kind);
    reach(*host, state);
    HmiSimulator::clearJournal();
    delete host->root();
    QCoreApplication::processEvents();
    // The keyboard and whatever else was open went with it, and what the host has left still takes keys.
    QCOMPARE(Operator::visibleTexts(host->glass()), QStringList());
    Operator::key(host->window(), Qt::Key_Tab);
    Operator::settle();
    QCOMPARE(lastCalls(), QStringList());
}

PANEL_TEST_MAIN(TestHosts)

#include "test_hosts.moc"
