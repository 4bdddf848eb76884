#pragma once

#include "controls/cipinput.h"
#include "plugin/implsystemset.h"
#include "shell/base/globalinfo.h"
#include "shell/base/screenroot.h"
#include "shell/base/vkbmanager.h"
#include "simulator/simulator.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <memory>

/// A real screen in a window of its own, for trying single controls on it.
///
/// Controls go onto page(), an empty page over the cards. The panel's keys beep.
class ControlScene
{
public:
    static constexpr int popupZ = 1000;

    explicit ControlScene(const QSize &size = {1024, 600});
    ~ControlScene();

    QQmlEngine *engine() const { return m_engine.get(); }
    QQuickWindow *window() const { return m_window.get(); }
    QQuickItem *root() const { return m_root; }
    QQuickItem *glass() const { return m_window->contentItem(); }
    QQuickItem *page() const { return m_page; }

    void open() { m_screen.open(); }
    void close() { m_screen.close(); }
    /// As the host does when it ends: the scene goes, then the engine.
    void end();
    /// The window goes alone.
    void endWindow() { m_window.reset(); }

    /// A key of the on-screen keyboard while it can be tapped, for example "7" or "hide"; else null.
    QQuickItem *keyboardKey(const QString &name) const;
    static bool isKeyboardShown() { return QSP::VkbManager::instance().isVisible(); }
    /// A point of the page where nothing is.
    QPoint nowhere() const { return {m_window->width() - 5, m_window->height() - 5}; }

    static int beeps() { return static_cast<int>(HmiSimulator::calls("beep").size()); }

private:
    ImplSystemSet m_screen;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QQuickItem *m_root = nullptr;
    QQuickItem *m_page = nullptr;
};

inline ControlScene::ControlScene(const QSize &size)
    : m_engine(std::make_unique<QQmlEngine>()), m_window(std::make_unique<QQuickWindow>())
{
    HmiSimulator::reset();
    HmiSimulator::setBuzzerOn(true);
    QSP::GlobalInfo::switchLanguage(QLocale(QLocale::English, QLocale::UnitedStates));
    m_window->resize(size);
    m_root = m_screen.init(m_engine.get(), size.width(), size.height(), popupZ);
    m_root->setParent(m_window->contentItem());
    m_root->setParentItem(m_window->contentItem());
    m_page = new QQuickItem(m_root);
    m_page->setSize(size);
    m_window->show();
    m_window->requestActivate();
    static_cast<void>(QTest::qWaitForWindowExposed(m_window.get()));
    static_cast<void>(QTest::qWaitForWindowActive(m_window.get()));
    open();
    HmiSimulator::clearJournal();
}

inline ControlScene::~ControlScene()
{
    end();
}

inline void ControlScene::end()
{
    m_window.reset();
    m_engine.reset();
}

inline QQuickItem *ControlScene::keyboardKey(const QString &name) const
{
    return Operator::items(glass(),
                           [&name](QQuickItem *item) {
                               return item->isVisible() &&
                                      item->objectName() == QLatin1String("vkbKey_") + name;
                           })
        .value(0);
}
