#include "tests/screen/hosts.h"

#include "simulator/simulator.h"

#include <QtGui/QGuiApplication>

/// The screen leaves its window while an operator is busy with it, and then its life.
///
/// The window must not go on with the focus in what it no longer has: it would use it at its next frame.
class TestLeaving : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void leavesInTheMiddle_data();
    void leavesInTheMiddle();
    void comesBackAndWorks_data();
    void comesBackAndWorks();

private:
    static void beginWork(const Host &host, const QString &work);
    /// Whether the item may have the focus of @p window: one that is in it and lives.
    static bool hasSoundFocus(const QQuickWindow *window);
};

void TestLeaving::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setDelays(1);
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN0, false);
}

void TestLeaving::beginWork(const Host &host, const QString &work)
{
    host.screen()->open();
    Operator::settle();
    if (work == "clock") {
        Operator::tap(Operator::byClass(Operator::byClass(host.root(), "QSP::CardTime"), "QSP::BeepButton"));
        Operator::settle();
        QQuickItem *editor = Operator::ancestorOf(Operator::byText(host.glass(), "OK"), "QQuickPopupItem");
        Operator::tap(Operator::byClass(editor, "QQuickTextInput"));
        return;
    }
    host.tapText("Network");
    QQuickItem *card = Operator::byClass(host.root(), "QSP::CardNetwork");
    if (work == "address") {
        Operator::tap(Operator::byClass(card, "QQuickTextInput"));
        QVERIFY(host.window()->activeFocusItem()->inherits("QQuickTextInput"));
    } else if (work == "list") {
        Operator::tap(Operator::byClass(Operator::byClass(host.root(), "QSP::CardNIC"), "QSP::ComboBox"));
        Operator::settle();
    } else if (work == "address done") {
        Operator::tap(Operator::byClass(card, "QQuickTextInput"));
        host.tapText("LAN0");
        QCOMPARE(host.window()->activeFocusItem(), host.root());
    }
}

bool TestLeaving::hasSoundFocus(const QQuickWindow *window)
{
    const QQuickItem *focused = window->activeFocusItem();
    return !focused || !Operator::items(window->contentItem(), [focused](QQuickItem *item) {
                            return item == focused;
                        }).isEmpty();
}

void TestLeaving::leavesInTheMiddle_data()
{
    QTest::addColumn<QString>("work");
    QTest::addColumn<QString>("way");
    const QStringList ways{"no parent",           "another window",    "loader made inactive",
                           "enclosing no parent", "enclosing deleted", "hidden, then no parent"};
    for (const char *work : {"address", "address done", "clock", "list"}) {
        for (const QString &way : ways)
            QTest::newRow(qPrintable(work + QStringLiteral(", ") + way)) << work << way;
    }
}

void TestLeaving::leavesInTheMiddle()
{
    QFETCH(QString, work);
    QFETCH(QString, way);
    QQuickWindow other;
    other.resize(1024, 600);
    other.show();
    // What a loader loaded is the loader's to delete.
    const std::unique_ptr<Host> host =
        Host::make(way == "enclosing deleted" ? "an item made by QML" : "a loaded item");
    beginWork(*host, work);
    QQuickItem *loaded = host->root()->parentItem();
    const QPointer<QQuickItem> root = host->root();
    if (way == "no parent") {
        root->setParentItem(nullptr);
    } else if (way == "another window") {
        root->setParentItem(other.contentItem());
    } else if (way == "loader made inactive") {
        loaded->parentItem()->setProperty("active", false);
    } else if (way == "enclosing no parent") {
        loaded->setParentItem(nullptr);
    } else if (way == "enclosing deleted") {
        root->setParent(&other);
        delete loaded;
    } else {
        loaded->setVisible(false);
        loaded->setParentItem(nullptr);
    }
    QVERIFY(hasSoundFocus(host->window()));
    QVERIFY(hasSoundFocus(&other));
    // Deleted by the loader, or else by the host.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delete root;
    QVERIFY(hasSoundFocus(host->window()));
    QVERIFY(hasSoundFocus(&other));
    for (QQuickWindow *window : {host->window(), &other}) {
        window->requestUpdate();
        Operator::key(window, Qt::Key_Tab);
        Operator::tap(window, {500, 300});
        Operator::settle();
    }
}

void TestLeaving::comesBackAndWorks_data()
{
    QTest::addColumn<QString>("work");
    for (const char *work : {"address", "address done", "clock", "list"})
        QTest::newRow(work) << work;
}

void TestLeaving::comesBackAndWorks()
{
    QFETCH(QString, work);
    const std::unique_ptr<Host> host = Host::make("a window");
    beginWork(*host, work);
    host->root()->setParentItem(nullptr);
    Operator::settle();
    QVERIFY2(!Operator::byText(host->glass(), "Wi-Fi"), "a list stayed on the glass without its box");
    host->root()->setParentItem(host->glass());
    host->screen()->close();
    host->screen()->open();
    Operator::settle();
    host->tapText("Network");
    QQuickItem *field =
        Operator::byClass(Operator::byClass(host->root(), "QSP::CardNetwork"), "QQuickTextInput");
    Operator::tap(field);
    QVERIFY(field->hasActiveFocus());
    Operator::key(host->window(), Qt::Key_Escape);
    QVERIFY(!field->hasActiveFocus());
}

PANEL_TEST_MAIN(TestLeaving)

#include "test_leaving.moc"
