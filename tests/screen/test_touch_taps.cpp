#include "tests/screen/touchareatest.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QTouchDevice>

/// A whole tap at the very edge of a control's touch area does what one in its middle does.
class TestTouchTaps : public TouchAreaTest
{
    Q_OBJECT

private slots:
    void general_data() { addTaps(); }
    void general();
    void timeEditor_data() { addTaps(); }
    void timeEditor();
    void network_data() { addTaps(); }
    void network();
    void listAndTestResult_data() { addTaps(); }
    void listAndTestResult();
    void password_data() { addTaps(); }
    void password();
    void onAPageThatScrolls_data() { addTaps(); }
    void onAPageThatScrolls();
    void scrollBar();
    void whatIsDisabledIsNobodyElses();

private:
    static void addTaps();
    void bringIntoSight(const QQuickItem *item);
    void tapEdge(QQuickItem *item, TouchCheck::Side side);
    void tapAt(const QPoint &point);
    bool isDrawnAt(const QQuickItem *item, const QPoint &point) const;
};

void TestTouchTaps::addTaps()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("byTouch");
    for (const QSize &size : {QSize(1024, 600), QSize(480, 800), QSize(480, 272)}) {
        for (const bool byTouch : {false, true})
            QTest::addRow("%dx%d %s", size.width(), size.height(), byTouch ? "touch" : "click")
                << size << byTouch;
    }
}

bool TestTouchTaps::isDrawnAt(const QQuickItem *item, const QPoint &point) const
{
    return item->mapRectToScene({0.0, 0.0, item->width(), item->height()}).contains(point);
}

void TestTouchTaps::tapAt(const QPoint &point)
{
    QFETCH(bool, byTouch);
    QQuickWindow *window = m_fixture->window();
    if (byTouch) {
        QTest::touchEvent(window, Operator::touchScreen()).press(0, point, window);
        QTest::touchEvent(window, Operator::touchScreen()).release(0, point, window);
        QCoreApplication::processEvents();
    } else {
        Operator::tap(window, point);
    }
}

// With some room around it, where its edges are.
void TestTouchTaps::bringIntoSight(const QQuickItem *item)
{
    if (!pool()->isAncestorOf(item))
        return;
    const QRectF place = item->mapRectToItem(pool(), {0.0, 0.0, item->width(), item->height()});
    if (place.top() >= 24.0 && place.bottom() <= pool()->height() - 24.0)
        return;
    scrollTo(pool()->property("contentY").toReal() + place.center().y() - pool()->height() / 2.0);
    Operator::settle();
}

// Beside what is drawn, or it would be no test.
void TestTouchTaps::tapEdge(QQuickItem *item, TouchCheck::Side side)
{
    QVERIFY(item && item->isVisible());
    bringIntoSight(item);
    const QPoint point = m_check->edgeOf(item, side);
    QVERIFY2(!isDrawnAt(item, point), item->metaObject()->className());
    tapAt(point);
    Operator::settle();
}

void TestTouchTaps::general()
{
    build();
    tapMenu(General);
    HmiSimulator::clearJournal();
    QQuickItem *plus = Operator::allByClass(card("QSP::CardBrightness"), "QSP::BrightButton").value(1);
    for (const auto side : {TouchCheck::Top, TouchCheck::Right, TouchCheck::Bottom})
        tapEdge(plus, side);
    QCOMPARE(HmiSimulator::panel().bright, 23);
    QQuickItem *minus = Operator::allByClass(card("QSP::CardBrightness"), "QSP::BrightButton").value(0);
    for (const auto side : {TouchCheck::Left, TouchCheck::Top, TouchCheck::Bottom})
        tapEdge(minus, side);
    QCOMPARE(HmiSimulator::panel().bright, 20);

    const bool buzzer = HmiSimulator::panel().buzzer;
    QQuickItem *toggle = Operator::byClass(card("QSP::CardBuzzer"), "QSP::BeepSwitch");
    tapEdge(toggle, TouchCheck::Top);
    QCOMPARE(HmiSimulator::panel().buzzer, !buzzer);
    tapEdge(toggle, TouchCheck::Bottom);
    QCOMPARE(HmiSimulator::panel().buzzer, buzzer);
}

void TestTouchTaps::timeEditor()
{
    build();
    tapMenu(General);
    tapEdge(Operator::byClass(card("QSP::CardTime"), "QSP::BeepButton"), TouchCheck::Bottom);
    QVERIFY(isShown("OK"));
    const auto fields = Operator::allByClass(m_fixture->glass(), "QQuickTextInput");
    QCOMPARE(fields.size(), 6);
    for (QQuickItem *field : fields) {
        for (const auto side : {TouchCheck::Top, TouchCheck::Bottom}) {
            tapEdge(field, side);
            QVERIFY(field->hasActiveFocus());
        }
    }
    Operator::key(m_fixture->window(), 0x100000);
    Operator::settle();
    QQuickItem *button = Operator::ancestorOf(Operator::byText(m_fixture->glass(), "OK"), "QSP::BeepButton");
    HmiSimulator::clearJournal();
    tapEdge(button, TouchCheck::Bottom);
    QCOMPARE(Journal::calls("setSystemTime").size(), 1);
}

void TestTouchTaps::network()
{
    build();
    tapMenu(Network);
    QQuickItem *network = card("QSP::CardNetwork");
    const auto tab = [&](const char *label) {
        return Operator::ancestorOf(Operator::byText(alias(network, "nicButtonFlow"), QLatin1String(label)),
                                    "QSP::BeepButton");
    };
    tapEdge(tab("4G"), TouchCheck::Left);
    QVERIFY(tab("4G")->property("checked").toBool());
    tapEdge(tab("LAN0"), TouchCheck::Bottom);
    QVERIFY(tab("LAN0")->property("checked").toBool());

    HmiSimulator::clearJournal();
    const auto switches = Operator::allByClass(network, "QSP::BeepSwitch");
    QCOMPARE(switches.size(), 2);
    tapEdge(switches[1], TouchCheck::Bottom);
    QCOMPARE(Journal::calls("setDHCP"), QStringList{"setDHCP(LAN0, true, persist)"});
    tapEdge(switches[1], TouchCheck::Top);
    QCOMPARE(Journal::calls("setDHCP").value(1), QString("setDHCP(LAN0, false, persist)"));
    QCOMPARE(Journal::calls("enableNIC"), QStringList());

    const auto inputs = Operator::allByClass(network, "QSP::CIpInput");
    for (QQuickItem *input : inputs) {
        QQuickItem *field = Operator::byClass(input, "QQuickTextInput");
        for (const auto side : {TouchCheck::Top, TouchCheck::Bottom}) {
            tapEdge(field, side);
            QVERIFY(field->hasActiveFocus());
            // It may cover the next one.
            Operator::key(m_fixture->window(), 0x100000);
            Operator::settle();
        }
    }
}

void TestTouchTaps::listAndTestResult()
{
    build();
    tapMenu(Network);
    QQuickItem *adapter = card("QSP::CardNIC");
    scrollTo(adapter->y() - 100.0);
    QQuickItem *box = Operator::byClass(adapter, "QQuickComboBox");
    const auto *list = box->property("popup").value<QObject *>();
    tapEdge(box, TouchCheck::Top);
    QTRY_VERIFY(list->property("opened").toBool());
    Operator::key(m_fixture->window(), Qt::Key_Escape);
    QTRY_VERIFY(!list->property("visible").toBool());

    tapEdge(alias(adapter, "testBeepButton"), TouchCheck::Bottom);
    HmiSimulator::waitIdle();
    QTRY_VERIFY(isShown("Test Result"));
    QQuickItem *title = Operator::byText(m_fixture->glass(), QStringLiteral("Test Result"));
    QQuickItem *dialog = Operator::ancestorOf(title, "QQuickPopupItem");
    tapEdge(Operator::byClass(dialog, "QSP::BeepButton"), TouchCheck::Bottom);
    QTRY_VERIFY(!isShown("Test Result"));
}

void TestTouchTaps::password()
{
    build();
    tapMenu(Network);
    select("Wi-Fi");
    m_fixture->tapText(QStringLiteral("Wi-Fi Settings"));
    QQuickItem *page = card("QSP::CardWifi");
    Operator::tap(alias(page, "scanButton"));
    HmiSimulator::waitIdle();
    QTRY_VERIFY(isShown("Maintenance"));
    Operator::tap(
        Operator::ancestorOf(Operator::byText(page, QStringLiteral("Maintenance")), "QSP::WifiRow"));
    QTRY_VERIFY(Operator::byClass(m_fixture->glass(), "QSP::WifiPasswordBody"));
    QQuickItem *body = Operator::byClass(m_fixture->glass(), "QSP::WifiPasswordBody");
    QQuickItem *field = Operator::byClass(body, "QQuickTextInput");
    tapEdge(field, TouchCheck::Top);
    QVERIFY(field->hasActiveFocus());
    Operator::key(m_fixture->window(), 0x100000);
    Operator::settle();
    QQuickItem *show =
        Operator::ancestorOf(Operator::byText(body, QStringLiteral("Show Password")), "QSP::BeepButton");
    tapEdge(show, TouchCheck::Bottom);
    QVERIFY(show->property("checked").toBool());
}

// There a press waits whether it becomes a scroll.
void TestTouchTaps::onAPageThatScrolls()
{
    QFETCH(QSize, size);
    build(size == QSize(480, 800) ? QSize(480, 600) : size);
    tapMenu(Network);
    QVERIFY(pool()->property("interactive").toBool());
    pool()->setProperty("pressDelay", 200);
    HmiSimulator::clearJournal();
    QQuickItem *toggle = Operator::allByClass(card("QSP::CardNetwork"), "QSP::BeepSwitch").value(1);
    bringIntoSight(toggle);
    const qreal before = pool()->property("contentY").toReal();
    tapEdge(toggle, TouchCheck::Bottom);
    QCOMPARE(Journal::calls("setDHCP"), QStringList{"setDHCP(LAN0, true, persist)"});
    QCOMPARE(pool()->property("contentY").toReal(), before);
}

void TestTouchTaps::scrollBar()
{
    build({1024, 600});
    tapMenu(Network);
    QQuickItem *bar = alias(m_fixture->root(), "scrollBarTouchItem");
    QVERIFY(bar->isVisible());
    for (const auto side : {TouchCheck::Left, TouchCheck::Right}) {
        scrollTo(0.0);
        const QPoint from = m_check->edgeOf(bar, side);
        QVERIFY(!isDrawnAt(bar, from));
        Operator::drag(m_fixture->window(), from, from + QPoint(0, 60));
        QVERIFY(pool()->property("contentY").toReal() > 0.0);
    }
}

void TestTouchTaps::whatIsDisabledIsNobodyElses()
{
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN0, true);
    build({1024, 600});
    tapMenu(Network);
    QQuickItem *toggle = Operator::allByClass(card("QSP::CardNetwork"), "QSP::BeepSwitch").value(1);
    QQuickItem *input = Operator::byClass(card("QSP::CardNetwork"), "QSP::CIpInput");
    QQuickItem *field = Operator::allByClass(input, "QQuickTextInput").value(3);
    QVERIFY(!field->isEnabled());
    HmiSimulator::clearJournal();
    const QPoint point = field->mapToScene({field->width() / 2.0, 1.0}).toPoint();
    QVERIFY(point.y() - toggle->mapToScene({0.0, toggle->height()}).y() < 20.0);
    Operator::tap(m_fixture->window(), point);
    QCOMPARE(Journal::calls(), QStringList());
}

PANEL_TEST_MAIN(TestTouchTaps)

#include "test_touch_taps.moc"
