#include "shell/embeddedcomponent.h"

#include "shell/globalinfo.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>

namespace QSP {

QQmlComponent *EmbeddedComponent::get(const QUrl &url, QQmlEngine *engine)
{
    if (!engine)
        engine = GlobalInfo::instance().qmlEngine();
    if (!engine || url.isEmpty())
        return nullptr;
    if (!m_component || m_component->engine() != engine) {
        m_component = new QQmlComponent(engine, url, engine);
        if (!m_component->isReady())
            qWarning("%s", qUtf8Printable(m_component->errorString()));
    }
    return m_component->isReady() ? m_component.data() : nullptr;
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
