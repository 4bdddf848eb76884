#pragma once

#include <QtCore/QPointer>
#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>

#include <functional>

class QQmlEngine;

namespace QSP {

/// A component made from one of the embedded documents, kept for as long as its engine lives.
///
/// Meant to be a static: it owns nothing, since the engine owns the component.
/// A document that does not load is reported once, with the component's error
/// string, and is not tried again in the same engine. GUI thread only.
class EmbeddedComponent
{
public:
    /// Gives a new item what its bindings are to see first.
    using Prepare = std::function<void(QQuickItem *item)>;

    /// Begins to read @p url in the engine's own thread, so that get() has less to wait for.
    /// The types that the document needs must be registered. Reading any other document in
    /// the meantime waits for this one. Does nothing in an engine that may put documents
    /// elsewhere (see QQmlEngine::setUrlInterceptor()), where waiting could take for ever.
    /// @return whether there is something to wait for.
    bool prefetch(const QUrl &url, QQmlEngine *engine = nullptr);

    /// The component of @p url in @p engine (null engine: the screen's engine), or null when it
    /// does not load. Waits for what prefetch() began.
    QQmlComponent *get(const QUrl &url, QQmlEngine *engine = nullptr);

    /// Creates an object in the engine's root context, gives it both parents
    /// before it is completed, and returns it; null when the document does not
    /// load or its root is no T.
    template <class T = QQuickItem>
    T *create(const QUrl &url, QQuickItem *parent, QQmlEngine *engine = nullptr, const Prepare &prepare = {})
    {
        QQuickItem *item = createItem(get(url, engine), parent, prepare);
        auto *wanted = qobject_cast<T *>(item);
        if (!wanted)
            delete item;
        return wanted;
    }

    /// The same from a component in hand; null when that is null or makes no item.
    static QQuickItem *createItem(QQmlComponent *component, QQuickItem *parent, const Prepare &prepare = {});

private:
    void load(const QUrl &url, QQmlEngine *engine, QQmlComponent::CompilationMode mode);

    QPointer<QQmlComponent> m_component;
    bool m_isReported = false;
};

} // namespace QSP
