#include "keyboard/standin.h"
#include "plugin/implsystemset.h"
#include "shell/vkbmanager.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

using QSP::VkbManager;

/// A panel without an on-screen keyboard: asked for once, never again, and nothing fails.
class TestNoKeyboard : public PanelTest
{
    Q_OBJECT

private slots:
    void asksOnce();
};

void TestNoKeyboard::asksOnce()
{
    QQmlEngine engine;
    QQuickWindow window;
    window.resize(1024, 600);
    ImplSystemSet screen;
    QQuickItem *root = screen.init(&engine, 1024, 600, 1000);
    QVERIFY(root);
    root->setParentItem(window.contentItem());
    window.show();
    screen.open();

    VkbManager &manager = VkbManager::instance();
    QVkbStandInSetAvailable(false);
    manager.showVkb(true);
    QVERIFY(!manager.isVisible());
    QCOMPARE(manager.getHeight(), 0.0);
    manager.setLayoutType(VkbPlainDigits);
    manager.showVkb(false);

    // One that appears later is not looked for: the answer of the first time holds.
    QVkbStandInSetAvailable(true);
    manager.showVkb(true);
    QVERIFY(!manager.isVisible());
    delete root;
}

PANEL_TEST_MAIN(TestNoKeyboard)

#include "test_nokeyboard.moc"
