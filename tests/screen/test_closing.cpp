#include "tests/screen/hosts.h"

#include "simulator/simulator.h"

#include <QtCore/QSignalMapper>
#include <QtGui/QGuiApplication>

/// How a host learns that the visit is over, and what it may do about it.
class TestClosing : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setApplicationName(QStringLiteral("vistor")); }
    void init();
    void closedComesOnceAVisit_data() { addWays(); }
    void closedComesOnceAVisit();
    void closedIsNotForAScreenShownAgain();
    void closedComesAlsoInAHiddenPage();
    void closedMayBeAnsweredByDeletion_data() { addWays(); }
    void closedMayBeAnsweredByDeletion();
    void hidingMayBeAnsweredByDeletionLater_data() { addWays(); }
    void hidingMayBeAnsweredByDeletionLater();

private:
    static void addWays();
    static void leave(const Host &host, const QString &way);
};

void TestClosing::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestClosing::addWays()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QSize>("size");
    for (const QSize &size : {QSize(1024, 600), QSize(480, 800)}) {
        for (const char *way : {"Exit", "Exit by a finger", "the host's close()"})
            QTest::addRow("%s, %d wide", way, size.width()) << way << size;
    }
}

void TestClosing::leave(const Host &host, const QString &way)
{
    QQuickItem *exit = Operator::ancestorOf(Operator::byText(host.root(), "Exit"), "QSP::BeepButton");
    if (way == "Exit")
        Operator::tap(exit);
    else if (way == "Exit by a finger")
        Operator::touch(exit);
    else
        host.screen()->close();
}

void TestClosing::closedComesOnceAVisit()
{
    QFETCH(QString, way);
    QFETCH(QSize, size);
    const std::unique_ptr<Host> host = Host::make("a window", size);
    QSignalSpy closed(host->root(), SIGNAL(closed()));
    QVERIFY(closed.isValid());
    host->screen()->close();
    QCoreApplication::processEvents();
    QCOMPARE(closed.size(), 0);
    for (int visit = 1; visit <= 2; ++visit) {
        host->screen()->open();
        Operator::settle();
        leave(*host, way);
        host->screen()->close();
        QTRY_COMPARE(closed.size(), visit);
    }
    QCoreApplication::processEvents();
    QCOMPARE(closed.size(), 2);
}

void TestClosing::closedIsNotForAScreenShownAgain()
{
    const std::unique_ptr<Host> host = Host::make("a window");
    QSignalSpy closed(host->root(), SIGNAL(closed()));
    host->screen()->open();
    host->screen()->close();
    host->screen()->open();
    Operator::settle();
    QCOMPARE(closed.size(), 0);
}

// A host may hide the page in which the screen lies before it closes the screen, and show it after it opened it.
void TestClosing::closedComesAlsoInAHiddenPage()
{
    const std::unique_ptr<Host> host = Host::make("an item made by QML");
    QQuickItem *page = host->root()->parentItem();
    QSignalSpy closed(host->root(), SIGNAL(closed()));
    host->screen()->open();
    page->setVisible(false);
    QCoreApplication::processEvents();
    QCOMPARE(closed.size(), 0);
    host->screen()->close();
    QTRY_COMPARE(closed.size(), 1);

    page->setVisible(true);
    host->screen()->open();
    host->screen()->close();
    page->setVisible(false);
    host->screen()->open();
    QCoreApplication::processEvents();
    QCOMPARE(closed.size(), 1);
}

void TestClosing::closedMayBeAnsweredByDeletion()
{
    QFETCH(QString, way);
    QFETCH(QSize, size);
    const std::unique_ptr<Host> host = Host::make("a window", size);
    // A host knows the signal by its name alone.
    QSignalMapper answer;
    answer.setMapping(host->root(), 0);
    connect(host->root(), SIGNAL(closed()), &answer, SLOT(map()));
    connect(&answer, &QSignalMapper::mappedInt, &answer, [&host] { delete host->root(); });
    host->screen()->open();
    Operator::settle();
    leave(*host, way);
    QTRY_VERIFY(!host->root());
    host->screen()->open();
    host->screen()->close();
    Operator::tap(host->window(), {100, 100});
    Operator::key(host->window(), Qt::Key_Tab);
    Operator::settle();
}

void TestClosing::hidingMayBeAnsweredByDeletionLater()
{
    QFETCH(QString, way);
    QFETCH(QSize, size);
    const std::unique_ptr<Host> host = Host::make("a window", size);
    host->screen()->open();
    Operator::settle();
    connect(host->root(), &QQuickItem::visibleChanged, host->root(), &QObject::deleteLater);
    leave(*host, way);
    QTRY_VERIFY(!host->root());
}

PANEL_TEST_MAIN(TestClosing)

#include "test_closing.moc"
