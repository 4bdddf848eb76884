#include "shell/embeddedcomponent.h"

#include "shell/globalinfo.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>

namespace QSP {

bool EmbeddedComponent::prefetch(const QUrl &url, QQmlEngine *engine)
{
    load(url, engine, QQmlComponent::Asynchronous);
    return m_component && m_component->isLoading();
}

QQmlComponent *EmbeddedComponent::get(const QUrl &url, QQmlEngine *engine)
{
    load(url, engine, QQmlComponent::PreferSynchronous);
    if (!m_component)
        return nullptr;
    // What was begun in the background is waited for here.
    if (m_component->isLoading())
        m_component->loadUrl(url);
    if (m_component->isReady())
        return m_component;
    if (!m_isReported)
        qWarning("%s", qUtf8Printable(m_component->errorString()));
    m_isReported = true;
    return nullptr;
}

void EmbeddedComponent::load(const QUrl &url, QQmlEngine *engine, QQmlComponent::CompilationMode mode)
{
    if (!engine)
        engine = GlobalInfo::instance().qmlEngine();
    if (m_component && m_component->engine() == engine)
        return;
    m_component = engine && !url.isEmpty() ? new QQmlComponent(engine, url, mode, engine) : nullptr;
    m_isReported = false;
}

QQuickItem *EmbeddedComponent::createItem(QQmlComponent *component, QQuickItem *parent,
                                          const Prepare &prepare)
{
    if (!component)
        return nullptr;
    QObject *object = component->beginCreate(component->engine()->rootContext());
    auto *item = qobject_cast<QQuickItem *>(object);
    if (item) {
        item->setParent(parent);
        item->setParentItem(parent);
        if (prepare)
            prepare(item);
    }
    component->completeCreate();
    if (!item)
        delete object;
    return item;
}

} // namespace QSP
