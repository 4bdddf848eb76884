#include "tests/screen/networkpage.h"
#include "tests/screen/wifiscreen.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QMutex>
#include <QtGui/QGuiApplication>

namespace {

// What the screen's categories said, in order, as "category: message".
class Log
{
public:
    static Log &instance()
    {
        static Log log;
        return log;
    }

    void begin()
    {
        take();
        m_previous = qInstallMessageHandler(note);
    }
    void end() const { qInstallMessageHandler(m_previous); }

    QStringList take()
    {
        const QMutexLocker lock(&m_mutex);
        return std::exchange(m_lines, {});
    }

private:
    static void note(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        const QLatin1String category(context.category);
        if (category.startsWith(QLatin1String("panelsettings."))) {
            const QMutexLocker lock(&instance().m_mutex);
            instance().m_lines << category.mid(int(qstrlen("panelsettings."))) + QStringLiteral(": ") +
                                      message;
        }
        if (type != QtDebugMsg)
            instance().m_previous(type, context, message);
    }

    QMutex m_mutex;
    QStringList m_lines;
    QtMessageHandler m_previous = nullptr;
};

QString take()
{
    return Log::instance().take().join('\n');
}

void switchOn()
{
    QLoggingCategory::setFilterRules(QStringLiteral("panelsettings.*.debug=true"));
}

} // namespace

/// What the log of a panel tells an engineer, and what it does not.
class TestLogging : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void silentByDefault();
    void followsPages();
    void followsAnAttemptToJoin();
    void followsAnAddress();
    void followsWhatRowsShow();
    void followsThePing();
    void tellsOfReportsThatComeTooLate();
    void followsTheKeyboard();
};

void TestLogging::init()
{
    beginWatch();
    HmiSimulator::reset();
    Log::instance().begin();
}

void TestLogging::cleanup()
{
    QLoggingCategory::setFilterRules(QString());
    Log::instance().end();
    endWatch();
}

void TestLogging::silentByDefault()
{
    NetworkPage page;
    page.edit(page.addressOf(QStringLiteral("IP Address")), 3, QStringLiteral("77"));
    page.screen().close();
    QCOMPARE(take(), QString());
}

void TestLogging::followsPages()
{
    switchOn();
    ScreenFixture screen(QStringLiteral(PANEL_PLUGIN), {1024, 600});
    QCOMPARE(take(), QStringLiteral("shell: built for 1024x600"));
    screen.open();
    screen.tapMenu(QStringLiteral("Language"));
    screen.close();
    const QString log = take();
    QVERIFY2(log.startsWith(QLatin1String("shell: shown\n")), qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("page: Language in place of")), qPrintable(log));
    QVERIFY2(log.endsWith(QLatin1String("shell: hidden")), qPrintable(log));
}

void TestLogging::followsAnAttemptToJoin()
{
    WifiScreen screen({1024, 600}, false);
    screen.toWifi();
    screen.scan();
    switchOn();
    Operator::tap(screen.row(QStringLiteral("Maintenance")));
    QTRY_VERIFY(screen.dialogBody());
    auto *field = Operator::byClass(screen.dialogBody(), "QQuickTextInput");
    Operator::tap(field);
    const QString password = QStringLiteral("Geheim4711");
    for (const QChar character : password)
        QTest::keyClick(screen.window(), character.toLatin1());
    QCOMPARE(field->property("text").toString(), password);
    screen.tapText(QStringLiteral("Connect"));
    HmiSimulator::waitIdle();
    Operator::settle();
    const QString log = take();
    QVERIFY2(log.contains(QLatin1String("wifi: joining \"Maintenance\"")), qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("device: connectWifi: the service reported on thread 0x")),
             qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("attempt: Connecting in Asked leads to Connecting")),
             qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("leads to WrongPassword")), qPrintable(log));
    QVERIFY2(!log.contains(password, Qt::CaseInsensitive), qPrintable(log));
}

void TestLogging::followsAnAddress()
{
    HmiSimulator::setManual(true);
    NetworkPage page;
    page.select(QStringLiteral("LAN1"));
    HmiSimulator::dropPending();
    switchOn();
    page.tapToggle(QStringLiteral("Static IP"));
    page.edit(page.addressOf(QStringLiteral("IP Address")), 3, QStringLiteral("77"));
    QTest::keyClick(page.window(), Qt::Key_Return);
    QVERIFY(HmiSimulator::fireNext("setDHCP"));
    QCoreApplication::processEvents();
    const QStringList log = Log::instance().take();
    const int chosen = log.indexOf(QStringLiteral("network: LAN1: static chosen"));
    const int set = log.indexOf(QRegularExpression(QStringLiteral("network: LAN1: address set to .*\\.77")));
    const int reported =
        log.indexOf(QRegularExpression(QStringLiteral("device: setDHCP: the service reported .*0x.*")));
    const int done = log.indexOf(QStringLiteral("network: LAN1: DHCP done"));
    QVERIFY2(0 <= chosen && chosen < set && set < reported && reported < done, qPrintable(log.join('\n')));
}

void TestLogging::followsWhatRowsShow()
{
    NetworkPage page;
    switchOn();
    page.select(QStringLiteral("LAN1"));
    page.select(QStringLiteral("4G"));
    const QString log = take();
    QVERIFY2(log.contains(QLatin1String("network: LAN1: address shows ")), qPrintable(log));
    QVERIFY2(log.contains(QRegularExpression(QStringLiteral("network: status: \\w+"))), qPrintable(log));
}

void TestLogging::followsThePing()
{
    HmiSimulator::setDelays(0);
    NetworkPage page;
    switchOn();
    page.reveal(page.defaultAdapter());
    page.screen().tapText(QStringLiteral("Test"));
    QTRY_VERIFY(page.isShown(QStringLiteral("Test Result")));
    const QString log = take();
    QVERIFY2(log.contains(QLatin1String("network: ping 1: over LAN0")), qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("device: pingTest: the service reported")), qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("network: ping 1: answered")), qPrintable(log));
}

void TestLogging::tellsOfReportsThatComeTooLate()
{
    HmiSimulator::setManual(true);
    NetworkPage page;
    page.reveal(page.defaultAdapter());
    page.screen().tapText(QStringLiteral("Test"));
    switchOn();
    page.destroy();
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    QCoreApplication::processEvents();
    const QString log = take();
    QVERIFY2(log.contains(QRegularExpression(
                 QStringLiteral("device: pingTest: the service .*, and nobody waits for it any more"))),
             qPrintable(log));
}

void TestLogging::followsTheKeyboard()
{
    NetworkPage page;
    switchOn();
    page.edit(page.addressOf(QStringLiteral("IP Address")), 3, QStringLiteral("77"));
    QTest::keyClick(page.window(), Qt::Key_Return);
    Operator::settle();
    const QString log = take();
    QVERIFY2(log.contains(QLatin1String("keyboard: edit begins in ")), qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("keyboard: layout 0")), qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("keyboard: shown")), qPrintable(log));
    QVERIFY2(log.contains(QLatin1String("keyboard: hidden")), qPrintable(log));
}

PANEL_TEST_MAIN(TestLogging)

#include "test_logging.moc"
