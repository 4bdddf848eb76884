#include "tests/screen/screenfixture.h"

#include "simulator/simulator.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QTouchDevice>
#include <QtQml/QQmlComponent>

#include <map>

namespace {

/// What listens to everything on a page; what it heard it tells the page, by hear().
constexpr char areas[] = R"(
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onPressed: _page.hear("pressed " + mouse.button)
        onDoubleClicked: _page.hear("double clicked")
        onWheel: _page.hear("wheel")
        onEntered: _page.hear("entered")
        onPositionChanged: _page.hear("moved")
    }
    MultiPointTouchArea {
        anchors.fill: parent
        mouseEnabled: false
        onPressed: _page.hear("touched")
    }
)";
constexpr char handlers[] = R"(
    TapHandler {
        acceptedButtons: Qt.AllButtons
        onTapped: _page.hear("tapped")
        onPressedChanged: if (pressed) _page.hear("tap begun")
    }
    PointHandler { acceptedButtons: Qt.AllButtons; onActiveChanged: if (active) _page.hear("point") }
    WheelHandler { onWheel: _page.hear("turned") }
)";
// The toolkit shows these every press, whoever took it.
constexpr char curiousHandlers[] = R"(
    HoverHandler { onHoveredChanged: if (hovered) _page.hear("hovered") }
    DragHandler { target: null; onActiveChanged: if (active) _page.hear("dragged") }
)";

/// The page of a host with such listeners; what they heard stands in "heard".
QByteArray pageWith(const char *listeners)
{
    return QStringLiteral(R"(
import QtQuick 2.15
Item {
    id: _page
    property var heard: []
    function hear(what) { heard = heard.concat([what]) }
    %1
}
)")
        .arg(QLatin1String(listeners))
        .toUtf8();
}

/// A spot of the screen, and the page that it is on.
struct Spot {
    const char *name;
    const char *page;
    QPoint point;
};

/// Everything that a mouse can do at a point.
void useMouse(QQuickWindow *window, const QPoint &point)
{
    QTest::mouseMove(window, point + QPoint(2, 1));
    QTest::mouseMove(window, point);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        QTest::mouseClick(window, button, Qt::NoModifier, point);
        QTest::mouseDClick(window, button, Qt::NoModifier, point);
    }
    QWheelEvent wheel(point, window->mapToGlobal(point), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window, &wheel);
    QTest::mouseMove(window, point + QPoint(1, 2));
    QCoreApplication::processEvents();
}

/// Everything that two fingers can do there.
void useFingers(QQuickWindow *window, const QPoint &point)
{
    const QPoint beside = point + QPoint(3, 2);
    QTest::touchEvent(window, Operator::touchScreen()).press(0, point, window);
    QTest::touchEvent(window, Operator::touchScreen()).stationary(0).press(1, beside, window);
    QTest::touchEvent(window, Operator::touchScreen()).stationary(0).move(1, beside + QPoint(4, 4), window);
    QTest::touchEvent(window, Operator::touchScreen())
        .stationary(0)
        .release(1, beside + QPoint(4, 4), window);
    QTest::touchEvent(window, Operator::touchScreen()).release(0, point, window);
    for (int i = 0; i < 2; ++i) {
        QTest::touchEvent(window, Operator::touchScreen()).press(0, point, window);
        QTest::touchEvent(window, Operator::touchScreen()).release(0, point, window);
    }
    QCoreApplication::processEvents();
}

void use(const QString &device, QQuickWindow *window, const QPoint &point)
{
    if (device == "mouse")
        useMouse(window, point);
    else
        useFingers(window, point);
}

constexpr QPoint bareSpot(600, 560);

} // namespace

/// Nothing that happens on the screen reaches the host's page underneath.
class TestFallThrough : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pageHearsWhatIsNotCovered_data();
    void pageHearsWhatIsNotCovered();
    void nothingReachesThePage_data();
    void nothingReachesThePage();
    void nothingReachesThePagePastADialog_data() { addWays(); }
    void nothingReachesThePagePastADialog();
    void hoverReachesNoHandler();
    void pointerIsNotShapedByThePage();
    void noDragIsTakenOver();
    void disabledPageHearsNothingAtAll();

private:
    static void addWays();
    void putUnderneath(const QString &listener);
    QString heard() const { return m_page->property("heard").toStringList().join(", "); }

    std::unique_ptr<ScreenFixture> m_screen;
    QQuickItem *m_page = nullptr;
};

void TestFallThrough::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setDelays(1);
    m_screen = std::make_unique<ScreenFixture>(QStringLiteral(PANEL_PLUGIN), QSize(1024, 600));
}

void TestFallThrough::cleanup()
{
    m_screen.reset();
    endWatch();
}

void TestFallThrough::addWays()
{
    QTest::addColumn<QString>("listener");
    QTest::addColumn<QString>("device");
    for (const char *listener : {"areas", "handlers"}) {
        for (const char *device : {"mouse", "fingers"})
            QTest::addRow("%s, %s", listener, device) << listener << device;
    }
}

void TestFallThrough::putUnderneath(const QString &listener)
{
    QQmlComponent component(m_screen->engine());
    const std::map<QString, const char *> listeners{
        {"areas", areas}, {"handlers", handlers}, {"curious handlers", curiousHandlers}};
    component.setData(pageWith(listeners.at(listener)), QUrl());
    m_page = qobject_cast<QQuickItem *>(component.create());
    QVERIFY2(m_page, qPrintable(component.errorString()));
    m_page->setParent(m_screen->glass());
    m_page->setParentItem(m_screen->glass());
    m_page->setSize({1024, 600});
    m_page->setZ(-1.0);
}

void TestFallThrough::pageHearsWhatIsNotCovered_data()
{
    QTest::addColumn<QString>("listener");
    QTest::addColumn<QString>("device");
    QTest::addColumn<QStringList>("wanted");
    QTest::newRow("areas, mouse") << "areas"
                                  << "mouse"
                                  << QStringList{"pressed 1", "pressed 2", "pressed 4", "double clicked",
                                                 "entered",   "moved",     "wheel"};
    QTest::newRow("areas, fingers") << "areas"
                                    << "fingers" << QStringList{"touched"};
    QTest::newRow("handlers, mouse") << "handlers"
                                     << "mouse" << QStringList{"tapped", "tap begun", "point", "turned"};
    QTest::newRow("handlers, fingers") << "handlers"
                                       << "fingers" << QStringList{"tapped", "tap begun", "point"};
    QTest::newRow("curious handlers, mouse") << "curious handlers"
                                             << "mouse" << QStringList{"hovered"};
}

void TestFallThrough::pageHearsWhatIsNotCovered()
{
    QFETCH(QString, listener);
    QFETCH(QString, device);
    QFETCH(QStringList, wanted);
    putUnderneath(listener);
    use(device, m_screen->window(), bareSpot);
    for (const QString &what : wanted)
        QVERIFY2(heard().contains(what), qPrintable(what + " is not in: " + heard()));
}

void TestFallThrough::nothingReachesThePage_data()
{
    QTest::addColumn<QString>("listener");
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QPoint>("point");
    const Spot spots[] = {
        {"title of the menu", "General", {100, 36}},  {"title of the page", "General", {600, 36}},
        {"below the menu", "General", {100, 430}},    {"beside the cards", "General", {220, 300}},
        {"between two cards", "General", {600, 197}}, {"on a card", "General", {600, 190}},
        {"below the cards", "General", bareSpot},     {"menu entry", "General", {100, 110}},
        {"brightness slider", "General", {600, 560}}, {"minus", "General", {260, 150}},
        {"card that scrolls", "Network", {400, 300}}, {"label of a row", "Network", {600, 330}},
    };
    for (const char *listener : {"areas", "handlers"}) {
        for (const char *device : {"mouse", "fingers"}) {
            for (const Spot &spot : spots)
                QTest::addRow("%s, %s, %s", listener, device, spot.name)
                    << listener << device << spot.page << spot.point;
        }
    }
}

void TestFallThrough::nothingReachesThePage()
{
    QFETCH(QString, listener);
    QFETCH(QString, device);
    QFETCH(QString, page);
    QFETCH(QPoint, point);
    m_screen->open();
    m_screen->tapMenu(page);
    putUnderneath(listener);
    use(device, m_screen->window(), point);
    QCOMPARE(heard(), QString());
}

void TestFallThrough::nothingReachesThePagePastADialog()
{
    QFETCH(QString, listener);
    QFETCH(QString, device);
    m_screen->open();
    m_screen->tapMenu("Network");
    putUnderneath(listener);
    for (const QPoint &point : {QPoint(5, 5), bareSpot, QPoint(512, 300)}) {
        m_screen->tapText("Test");
        HmiSimulator::waitIdle();
        QTRY_VERIFY(Operator::byText(m_screen->glass(), "Test successful!"));
        use(device, m_screen->window(), point);
        QCOMPARE(heard(), QString());
        if (!Operator::byText(m_screen->glass(), "Test successful!"))
            continue;
        Operator::tap(m_screen->window(), {5, 5});
        QTRY_VERIFY(!Operator::byText(m_screen->glass(), "Test successful!"));
    }
}

void TestFallThrough::hoverReachesNoHandler()
{
    m_screen->open();
    putUnderneath("curious handlers");
    for (const QPoint &point : {bareSpot, QPoint(600, 36), QPoint(100, 110), QPoint(600, 150)})
        QTest::mouseMove(m_screen->window(), point);
    QCoreApplication::processEvents();
    QCOMPARE(heard(), QString());
}

void TestFallThrough::pointerIsNotShapedByThePage()
{
    putUnderneath("areas");
    // The area that lies on the page.
    m_page->childItems().constFirst()->setCursor(Qt::IBeamCursor);
    QTest::mouseMove(m_screen->window(), bareSpot);
    QCOMPARE(m_screen->window()->cursor().shape(), Qt::IBeamCursor);
    m_screen->open();
    for (const QPoint &point : {QPoint(600, 36), QPoint(100, 430), bareSpot}) {
        QTest::mouseMove(m_screen->window(), point);
        QCOMPARE(m_screen->window()->cursor().shape(), Qt::ArrowCursor);
    }
}

void TestFallThrough::noDragIsTakenOver()
{
    m_screen->open();
    putUnderneath("curious handlers");
    for (const QPoint &point : {bareSpot, QPoint(600, 36), QPoint(100, 430)})
        Operator::drag(m_screen->window(), point, point + QPoint(60, -30), 6);
    QVERIFY2(!heard().contains("dragged"), qPrintable(heard()));
}

void TestFallThrough::disabledPageHearsNothingAtAll()
{
    m_screen->open();
    putUnderneath("curious handlers");
    m_page->setEnabled(false);
    for (const QPoint &point : {bareSpot, QPoint(600, 36), QPoint(100, 110), QPoint(600, 150)}) {
        useMouse(m_screen->window(), point);
        useFingers(m_screen->window(), point);
        Operator::drag(m_screen->window(), point, point + QPoint(60, 30), 6);
    }
    QCOMPARE(heard(), QString());
}

PANEL_TEST_MAIN(TestFallThrough)

#include "test_fallthrough.moc"
