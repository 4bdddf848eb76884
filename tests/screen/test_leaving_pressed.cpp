#include "host/glass/sight.h"
#include "simulator/simulator.h"
#include "tests/screen/wifiscreen.h"
#include "tests/support/scenecheck.h"

#include <QtCore/QMap>

namespace {

enum class Way { NoParent, NoParentThenDeleted, Closed };

using Scene = void (*)(WifiScreen *);

void showGeneral(WifiScreen *screen)
{
    screen->tapMenu(QStringLiteral("General"));
}

void showNetwork(WifiScreen *screen)
{
    screen->tapText(QStringLiteral("LAN0"));
}

void showNetworks(WifiScreen *screen)
{
    screen->toWifi();
    screen->scan();
}

void showPasswordDialog(WifiScreen *screen)
{
    showNetworks(screen);
    Operator::tap(screen->row(QStringLiteral("Maintenance")));
    Operator::settle();
}

/// One of each kind of control that a finger finds.
QVector<QPointer<QQuickItem>> controlsOf(const WifiScreen &screen)
{
    QMap<QByteArray, QPointer<QQuickItem>> controls;
    const auto found = Operator::items(screen.glass(), [](const QQuickItem *item) {
        return (item->inherits("QQuickAbstractButton") || item->inherits("QQuickComboBox") ||
                item->inherits("QQuickSlider")) &&
               item->isEnabled() && Sight::isOnGlass(item) && !Sight::coverOf(item);
    });
    // What is in front comes last.
    for (QQuickItem *control : found)
        controls[control->metaObject()->className()] = control;
    return {controls.cbegin(), controls.cend()};
}

} // namespace

Q_DECLARE_METATYPE(Scene)
Q_DECLARE_METATYPE(Way)

/// The screen leaves its window, or a dialog the glass, while a finger is down.
///
/// What is pressed looks released then. It must not be noted as something to paint any more: the window would
/// make a node, with its next frame, for what is no longer in it, and nobody would delete that.
class TestLeavingPressed : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void leaves_data();
    void leaves();
};

void TestLeavingPressed::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestLeavingPressed::leaves_data()
{
    QTest::addColumn<Scene>("scene");
    QTest::addColumn<Way>("way");
    QTest::addColumn<bool>("byTouch");
    struct NamedScene {
        const char *name;
        Scene scene;
    };
    static const NamedScene scenes[] = {{"general", showGeneral},
                                        {"network", showNetwork},
                                        {"networks", showNetworks},
                                        {"password", showPasswordDialog}};
    struct NamedWay {
        const char *name;
        Way way;
    };
    static constexpr NamedWay ways[] = {{"taken out", Way::NoParent},
                                        {"taken out and deleted", Way::NoParentThenDeleted},
                                        {"closed", Way::Closed}};
    bool byTouch = false;
    for (const NamedScene &scene : scenes) {
        for (const NamedWay &way : ways) {
            byTouch = !byTouch || way.way == Way::NoParent;
            QTest::addRow("%s, %s", scene.name, way.name) << scene.scene << way.way << byTouch;
        }
    }
}

void TestLeavingPressed::leaves()
{
    QFETCH(const Scene, scene);
    QFETCH(const Way, way);
    QFETCH(const bool, byTouch);
    int count = 1;
    for (int i = 0; i < count; ++i) {
        WifiScreen screen({1024, 600}, false);
        scene(&screen);
        const auto controls = controlsOf(screen);
        count = controls.size();
        const QPointer<QQuickItem> control = controls.value(i);
        const QPoint point = Operator::centerOf(control);
        QVector<QPointer<QQuickItem>> items;
        const auto found = Operator::items(screen.glass(), [](const QQuickItem *) { return true; });
        for (QQuickItem *item : found)
            items << item;
        Operator::pressAt(screen.window(), point, byTouch);
        // A page that scrolls holds it back for a while.
        QTRY_VERIFY(control->property("pressed").toBool());
        switch (way) {
        case Way::NoParent:
            screen.root()->setParentItem(nullptr);
            break;
        case Way::NoParentThenDeleted:
            screen.root()->setParentItem(nullptr);
            delete screen.root();
            break;
        case Way::Closed:
            screen.screen()->close();
            break;
        }
        const auto lookAtAll = [&items, &point] {
            for (const QPointer<QQuickItem> &item : qAsConst(items)) {
                const QString fault = item ? SceneCheck::faultOf(item) : QString();
                QVERIFY2(fault.isEmpty(),
                         qPrintable(fault +
                                    QStringLiteral(" after a press at %1,%2").arg(point.x()).arg(point.y())));
            }
        };
        lookAtAll();
        screen.window()->update();
        Operator::awaitFrame(screen.window());
        lookAtAll();
        Operator::liftAt(screen.window(), point, byTouch);
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(count > 0);
}

PANEL_TEST_MAIN(TestLeavingPressed)

#include "test_leaving_pressed.moc"
