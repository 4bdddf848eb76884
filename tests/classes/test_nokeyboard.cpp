#include "controls/timeeditpopup.h"
#include "keyboard/standin.h"
#include "plugin/implsystemset.h"
#include "shell/base/vkbmanager.h"
#include "simulator/simulator.h"
#include "tests/support/journal.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <memory>

using QSP::VkbManager;

/// A panel without an on-screen keyboard: asked for once, never again, and nothing fails.
class TestNoKeyboard : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void asksOnce();
    void editorOpensWithoutTheFocusOfLastTime();

private:
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    ImplSystemSet m_screen;
    QQuickItem *m_root = nullptr;
};

void TestNoKeyboard::init()
{
    beginWatch();
    QVkbStandInSetAvailable(false);
    m_engine = std::make_unique<QQmlEngine>();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(1024, 600);
    m_root = m_screen.init(m_engine.get(), 1024, 600, 1000);
    QVERIFY(m_root);
    m_root->setParent(m_window->contentItem());
    m_root->setParentItem(m_window->contentItem());
    Operator::show(m_window.get());
    m_screen.open();
}

void TestNoKeyboard::cleanup()
{
    m_window.reset();
    m_engine.reset();
    endWatch();
}

void TestNoKeyboard::asksOnce()
{
    VkbManager &manager = VkbManager::instance();
    manager.showVkb(true);
    QVERIFY(!manager.isVisible());
    QCOMPARE(manager.getHeight(), 0.0);
    manager.setLayoutType(VkbPlainDigits);
    manager.showVkb(false);

    // One that appears later is not looked for: the answer of the first time holds.
    QVkbStandInSetAvailable(true);
    manager.showVkb(true);
    QVERIFY(!manager.isVisible());
}

void TestNoKeyboard::editorOpensWithoutTheFocusOfLastTime()
{
    auto *editor = new QSP::TimeEditPopup(m_root);
    editor->setY(100);
    editor->setCurrentDateTime(QDateTime(QDate(2024, 3, 9), QTime(14, 5, 7)));
    QSignalSpy confirmed(editor, &QSP::TimeEditPopup::dateTimeConfirmed);
    editor->open();
    Operator::settle();
    QQuickItem *day = Operator::byText(editor->contentItem(), QStringLiteral("09"));
    QVERIFY(day);
    Operator::tap(day);
    QVERIFY(day->hasActiveFocus());
    Operator::tap(m_window.get(), {5, 5});
    QTRY_VERIFY(!editor->isVisible());
    Operator::key(m_window.get(), Qt::Key_Return);
    QCOMPARE(confirmed.count(), 0);
    HmiSimulator::setBuzzerOn(true);
    HmiSimulator::clearJournal();
    editor->open();
    Operator::settle();
    QVERIFY(!day->hasActiveFocus());
    QCOMPARE(Journal::calls(), QStringList());
    Operator::key(m_window.get(), Qt::Key_Return);
    QCOMPARE(confirmed.count(), 0);
}

PANEL_TEST_MAIN(TestNoKeyboard)

#include "test_nokeyboard.moc"
