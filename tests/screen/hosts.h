#pragma once

#include "plugin/isystemset.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtCore/QLibrary>
#include <QtCore/QPointer>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <memory>

/// A runtime that shows the screen, in one of the ways in which runtimes are made.
///
/// They differ in who owns the root item and in what stands between it and the window. Deleting
/// the host ends it as such a runtime ends: the scene first, then the engine.
class Host
{
public:
    /// The names that make() knows.
    static QStringList kinds();
    /// A host of that kind with a screen of @p size in it, shown and active; the screen is still hidden.
    static std::unique_ptr<Host> make(const QString &kind, const QSize &size = {1024, 600});
    virtual ~Host();

    virtual QQmlEngine *engine() const = 0;
    virtual QQuickWindow *window() const = 0;

    ISystemSet *screen() const { return m_screen.get(); }
    /// Null once it was deleted.
    QQuickItem *root() const { return m_root; }
    QQuickItem *glass() const { return window()->contentItem(); }
    /// Taps the button that carries @p text.
    void tapText(const QString &text) const;

protected:
    /// Builds the screen below @p owner, which deletes it, and inside @p place.
    void build(const QSize &size, QObject *owner, QQuickItem *place);
    /// To be called by each kind while its scene lives.
    void show() const;

private:
    QLibrary m_library;
    std::shared_ptr<ISystemSet> m_screen;
    QPointer<QQuickItem> m_root;
};
