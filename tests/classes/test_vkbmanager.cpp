#include "keyboard/standin.h"
#include "plugin/implsystemset.h"
#include "shell/base/screenroot.h"
#include "shell/base/vkbmanager.h"
#include "simulator/simulator.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>
#include <QtQuick/private/qquicktextinput_p.h>
#include <QtQuick/QQuickWindow>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

using QSP::VkbManager;

namespace {

VkbManager &manager()
{
    return VkbManager::instance();
}

} // namespace

class TestVkbManager : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void hidingNeverLoads();
    void layoutWithoutKeyboardDoesNothing();
    void showsAndHides();
    void columnSlidesByTheOverlap();
    void columnStaysForAFieldInSight();
    void columnFollowsTheFocusFromFieldToField();
    void modalFlagIsKept();
    void showingAgainAddsNothing();
    void goingFromFieldToFieldKeepsTheKeyboard();
    void leavingTheLastFieldHides();
    void hidingTakesTheFocus();
    void fieldMayDieWhileFocused();
    void screenMayDieWhileShown();
    void hidingTheScreenHides_data();
    void hidingTheScreenHides();
    void takingTheScreenOutOfItsSceneHides();
    void screenInAnotherWindowHasItToo();

private:
    QQuickTextInput *addField(qreal bottom);
    QQuickPopup *popup() const { return QVkbPluginLoader::instance(m_window.get())->vkb()->popup(); }
    qreal keyboardTop() const;

    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QQuickItem *m_root = nullptr;
    ImplSystemSet m_screen;
};

void TestVkbManager::init()
{
    beginWatch();
    HmiSimulator::reset();
    m_engine = std::make_unique<QQmlEngine>();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(1024, 600);
    m_root = m_screen.init(m_engine.get(), 1024, 600, 1000);
    QVERIFY(m_root);
    m_root->setParentItem(m_window->contentItem());
    Operator::show(m_window.get());
    m_screen.open();
}

void TestVkbManager::cleanup()
{
    delete m_root;
    m_window.reset();
    m_engine.reset();
    endWatch();
}

QQuickTextInput *TestVkbManager::addField(qreal bottom)
{
    // On the column, but not laid out by it: the row stands where the test wants it.
    auto *field = new QQuickTextInput(new QQuickItem(QSP::ScreenRoot::cardColumn()));
    field->setSize({200, 30});
    field->setY(field->parentItem()->mapFromItem(m_root, QPointF(0, bottom - 30)).y());
    connect(field, &QQuickItem::activeFocusChanged, &manager(), [field](bool focused) {
        if (focused)
            manager().showVkb(true);
        manager().fieldFocusChanged(field, focused);
    });
    return field;
}

qreal TestVkbManager::keyboardTop() const
{
    return QVkbPluginLoader::instance(m_window.get())->vkb()->item()->mapToItem(m_root, QPointF()).y();
}

void TestVkbManager::hidingNeverLoads()
{
    manager().showVkb(false);
    QVERIFY(!manager().isVisible());
    QCOMPARE(manager().getHeight(), 0.0);
    QVERIFY(!QVkbPluginLoader::instance(m_window.get())->vkb()->popup());
}

void TestVkbManager::layoutWithoutKeyboardDoesNothing()
{
    manager().setLayoutType(VkbFullKeyboard);
    QVERIFY(!manager().isVisible());
}

void TestVkbManager::showsAndHides()
{
    QSignalSpy changes(&manager(), &VkbManager::visibleChanged);
    addField(100)->forceActiveFocus();
    QVERIFY(manager().isVisible());
    QVERIFY(manager().getHeight() > 0.0);
    QCOMPARE(changes.size(), 1);
    manager().showVkb(false);
    QVERIFY(!manager().isVisible());
    QCOMPARE(changes.size(), 2);
    manager().showVkb(false);
    QCOMPARE(changes.size(), 2);
}

void TestVkbManager::columnSlidesByTheOverlap()
{
    QQuickItem *column = QSP::ScreenRoot::cardColumn();
    addField(100)->forceActiveFocus();
    const qreal top = keyboardTop();
    manager().showVkb(false);
    addField(top + 30.0)->forceActiveFocus();
    QCOMPARE(column->y(), -30.0);
    manager().showVkb(false);
    QCOMPARE(column->y(), 0.0);
}

void TestVkbManager::columnStaysForAFieldInSight()
{
    QQuickItem *column = QSP::ScreenRoot::cardColumn();
    addField(100)->forceActiveFocus();
    const qreal top = keyboardTop();
    QCOMPARE(column->y(), 0.0);
    manager().showVkb(false);
    addField(top)->forceActiveFocus();
    QCOMPARE(column->y(), 0.0);
}

void TestVkbManager::columnFollowsTheFocusFromFieldToField()
{
    QQuickItem *column = QSP::ScreenRoot::cardColumn();
    QQuickTextInput *high = addField(100);
    high->forceActiveFocus();
    QQuickTextInput *low = addField(keyboardTop() + 45.0);
    low->forceActiveFocus();
    QCOMPARE(column->y(), -45.0);
    QVERIFY(manager().isVisible());
    low->forceActiveFocus();
    QCOMPARE(column->y(), -45.0);
    high->forceActiveFocus();
    QCOMPARE(column->y(), 0.0);
}

void TestVkbManager::modalFlagIsKept()
{
    addField(100)->forceActiveFocus();
    manager().showVkb(false);
    popup()->setModal(true);
    manager().showVkb(true);
    QVERIFY(!popup()->isModal());
    manager().showVkb(true);
    QVERIFY(!popup()->isModal());
    manager().showVkb(false);
    QVERIFY(popup()->isModal());
    popup()->setModal(false);
    manager().showVkb(true);
    manager().showVkb(false);
    QVERIFY(!popup()->isModal());
}

void TestVkbManager::showingAgainAddsNothing()
{
    addField(100)->forceActiveFocus();
    for (int i = 0; i < 100; ++i)
        manager().showVkb(true);
    QSignalSpy changes(&manager(), &VkbManager::visibleChanged);
    manager().showVkb(false);
    QCOMPARE(changes.size(), 1);
}

void TestVkbManager::goingFromFieldToFieldKeepsTheKeyboard()
{
    QQuickTextInput *first = addField(100);
    QQuickTextInput *second = addField(150);
    first->forceActiveFocus();
    QSignalSpy changes(&manager(), &VkbManager::visibleChanged);
    Operator::tap(second);
    QVERIFY(second->hasActiveFocus());
    Operator::tap(first);
    QVERIFY(first->hasActiveFocus());
    QVERIFY(manager().isVisible());
    QCOMPARE(changes.size(), 0);
}

void TestVkbManager::leavingTheLastFieldHides()
{
    QQuickTextInput *field = addField(100);
    field->forceActiveFocus();
    m_root->forceActiveFocus();
    QVERIFY(!manager().isVisible());
    QVERIFY(!field->hasActiveFocus());
}

void TestVkbManager::hidingTakesTheFocus()
{
    QQuickTextInput *field = addField(100);
    field->forceActiveFocus();
    manager().showVkb(false);
    QVERIFY(!field->hasActiveFocus());
    QCOMPARE(m_window->activeFocusItem(), m_root);
}

void TestVkbManager::fieldMayDieWhileFocused()
{
    QQuickTextInput *field = addField(100);
    field->forceActiveFocus();
    delete field;
    QCoreApplication::processEvents();
    manager().showVkb(false);
    QVERIFY(!manager().isVisible());
    addField(150)->forceActiveFocus();
    QVERIFY(manager().isVisible());
}

void TestVkbManager::screenMayDieWhileShown()
{
    addField(560)->forceActiveFocus();
    QVERIFY(manager().isVisible());
    delete m_root;
    m_root = nullptr;
    QVERIFY(!manager().isVisible());
    manager().showVkb(false);
    QVERIFY(!manager().isVisible());
    manager().showVkb(true);
    manager().showVkb(false);
}

void TestVkbManager::hidingTheScreenHides_data()
{
    QTest::addColumn<bool>("byClose");
    QTest::newRow("closed") << true;
    QTest::newRow("with the host's own page") << false;
}

void TestVkbManager::hidingTheScreenHides()
{
    QFETCH(bool, byClose);
    QQuickItem page(m_window->contentItem());
    m_root->setParentItem(&page);
    QQuickTextInput *field = addField(560);
    field->forceActiveFocus();
    QVERIFY(QSP::ScreenRoot::cardColumn()->y() < 0.0);
    if (byClose)
        m_screen.close();
    else
        page.setVisible(false);
    QVERIFY(!manager().isVisible());
    QVERIFY(!field->hasActiveFocus());
    QCOMPARE(QSP::ScreenRoot::cardColumn()->y(), 0.0);
    m_root->setParentItem(m_window->contentItem());
}

void TestVkbManager::takingTheScreenOutOfItsSceneHides()
{
    addField(560)->forceActiveFocus();
    QVERIFY(manager().isVisible());
    m_root->setParentItem(nullptr);
    QVERIFY(!manager().isVisible());
    m_root->setParentItem(m_window->contentItem());
    addField(100)->forceActiveFocus();
    QVERIFY(manager().isVisible());
}

void TestVkbManager::screenInAnotherWindowHasItToo()
{
    addField(100)->forceActiveFocus();
    QVERIFY(manager().isVisible());
    cleanup();
    init();
    QVERIFY(!manager().isVisible());
    QCOMPARE(manager().getHeight(), 0.0);
    addField(100)->forceActiveFocus();
    QVERIFY(manager().isVisible());
    QVERIFY(popup()->isVisible());
}

PANEL_TEST_MAIN(TestVkbManager)

#include "test_vkbmanager.moc"
