#pragma once

#include "plugin/isystemset.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtCore/QLibrary>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <memory>

/// The interface of the plug-in in @p library, as a host obtains it; null, and the test fails, when
/// the library does not load. VexPluginCloseInstance() is the caller's.
std::shared_ptr<ISystemSet> screenOf(QLibrary *library);

/// The timers of a screen, to see whether they go with it.
QVector<QPointer<QTimer>> timersBelow(const QObject *root);

/// The sizes of glass that the screen is made for, the narrow ones that lie with the options of a host for them.
inline QVector<QSize> glassSizes()
{
    return {{1024, 600}, {800, 480}, {1280, 800}, {480, 800},
            {600, 1024}, {480, 272}, {640, 480},  {799, 480}};
}
/// Those options; for the other sizes they change nothing.
inline QVariantMap compactOptions()
{
    return {{QStringLiteral("panelCompactLandscape"), true}};
}

/// The screen as a host has it: the plug-in loaded from its file, in a window of its own.
class ScreenFixture
{
public:
    /// Loads the plug-in and builds a screen of @p size; nothing is shown yet. The engine has the properties @p options.
    ScreenFixture(const QString &plugin, const QSize &size, int rootPopupZ = 1000,
                  const QVariantMap &options = {});
    ScreenFixture(const QString &plugin, const QSize &size, const QVariantMap &options)
        : ScreenFixture(plugin, size, 1000, options)
    {}
    ~ScreenFixture();

    /// As a host that deletes the screen and builds it anew in the same window.
    void rebuild();

    bool isBuilt() const { return m_root != nullptr; }
    ISystemSet *screen() const { return m_screen.get(); }
    QQuickItem *root() const { return m_root; }
    QQuickWindow *window() const { return m_window.get(); }
    QQmlEngine *engine() const { return m_engine.get(); }

    /// open(), and waits until the window is exposed and painted.
    void open();
    void close();

    /// The page title as the operator reads it.
    QString title() const;
    /// Taps the menu entry that reads @p text.
    void tapMenu(const QString &text);
    /// Taps the button (or whatever can be tapped) that carries @p text.
    void tapText(const QString &text);
    /// The visible card of that class, or null.
    QQuickItem *card(const char *className) const { return Operator::byClass(m_root, className); }
    /// Everything below the root and below the popups' overlay.
    QQuickItem *glass() const { return m_window->contentItem(); }

private:
    struct Plugin;

    void build();

    // One for all screens that there are at a time, as a host has it.
    std::shared_ptr<Plugin> m_plugin;
    std::shared_ptr<ISystemSet> m_screen;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QSize m_size;
    int m_rootPopupZ;
    QPointer<QQuickItem> m_root;
};
