#include "shell/base/embeddedcomponent.h"

#include "shell/base/globalinfo.h"
#include "shell/base/icon.h"
#include "shell/base/palette.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQml/QQmlFileSelector>

namespace QSP {

namespace {

// Whether reading a document ends soon: file selectors choose among embedded documents, any other
// interceptor may lead to a network.
bool keepsDocumentsLocal(QQmlEngine *engine)
{
    return !engine->urlInterceptor() || QQmlFileSelector::get(engine);
}

} // namespace

bool EmbeddedComponent::prefetch(const QUrl &url, QQmlEngine *engine)
{
    if (!engine)
        engine = GlobalInfo::instance().qmlEngine();
    if (!engine || !keepsDocumentsLocal(engine))
        return false;
    load(url, engine, QQmlComponent::Asynchronous);
    return m_component && m_component->isLoading();
}

QQmlComponent *EmbeddedComponent::get(const QUrl &url, QQmlEngine *engine)
{
    load(url, engine ? engine : GlobalInfo::instance().qmlEngine(), QQmlComponent::PreferSynchronous);
    if (!m_component)
        return nullptr;
    if (m_component->isLoading() && keepsDocumentsLocal(m_component->engine()))
        m_component->loadUrl(url);
    if (m_component->isReady())
        return m_component;
    if (!m_isReported)
        qWarning("%s", qUtf8Printable(m_component->isLoading() ? url.toString() + ": cannot be read at once"
                                                               : m_component->errorString()));
    m_isReported = true;
    return nullptr;
}

void EmbeddedComponent::load(const QUrl &url, QQmlEngine *engine, QQmlComponent::CompilationMode mode)
{
    if (m_component && m_component->engine() == engine)
        return;
    Icon::registerType();
    Palette::registerForDocuments();
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
