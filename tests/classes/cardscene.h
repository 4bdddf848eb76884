#pragma once

#include "plugin/implsystemset.h"
#include "shell/base/globalinfo.h"
#include "shell/base/vkbmanager.h"
#include "simulator/simulator.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <memory>

/// A real screen in a window of its own, opened, with the default panel behind it.
class CardScene
{
public:
    static constexpr int popupZ = 1000;

    /// The engine has the properties @p options.
    explicit CardScene(const QSize &size = {1024, 600}, const QVariantMap &options = {})
        : m_engine(std::make_unique<QQmlEngine>()), m_window(std::make_unique<QQuickWindow>())
    {
        QSP::GlobalInfo::switchLanguage(QLocale(QLocale::English, QLocale::UnitedStates));
        m_window->resize(size);
        for (auto option = options.begin(); option != options.end(); ++option)
            m_engine->setProperty(qPrintable(option.key()), option.value());
        m_root = m_screen.init(m_engine.get(), size.width(), size.height(), popupZ);
        m_root->setParent(m_window->contentItem());
        m_root->setParentItem(m_window->contentItem());
        Operator::show(m_window.get());
        m_screen.open();
        HmiSimulator::clearJournal();
    }

    QQmlEngine *engine() const { return m_engine.get(); }
    QQuickWindow *window() const { return m_window.get(); }
    QQuickItem *root() const { return m_root; }
    QQuickItem *glass() const { return m_window->contentItem(); }
    void open() { m_screen.open(); }
    void close() { m_screen.close(); }
    /// As the host does when it ends: the scene goes, then the engine.
    void end()
    {
        endWindow();
        m_engine.reset();
    }
    /// The window goes alone.
    void endWindow() { m_window.reset(); }

    template <class Card> Card *card(const char *className) const
    {
        return qobject_cast<Card *>(Operator::byClass(m_root, className));
    }

    /// A key of the on-screen keyboard, for example "7" or "hide"; null while it cannot be seen.
    QQuickItem *keyboardKey(const QString &name) const
    {
        return Operator::byName(glass(), QLatin1String("vkbKey_") + name);
    }

private:
    ImplSystemSet m_screen;
    // In this order: the scene goes before its engine.
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QQuickItem *m_root = nullptr;
};
