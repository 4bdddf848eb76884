#include "plugin/implsystemset.h"

#include "shell/approotitem.h"
#include "shell/globalinfo.h"

#include <QtCore/QPointer>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>

QQuickItem *ImplSystemSet::init(QQmlEngine *engine, int width, int height, int rootPopupZ)
{
    if (!engine || width < 1 || height < 1) {
        qWarning("The settings screen needs an engine and a size of at least 1x1, not %dx%d%s", width, height,
                 engine ? "" : " without an engine");
        return nullptr;
    }

    QSP::GlobalInfo &info = QSP::GlobalInfo::instance();

    // Owned by its engine, which may end before the process does.
    static QPointer<QQmlComponent> s_component;
    if (!s_component || s_component->engine() != engine) {
        static const int rootType = qmlRegisterType<QSP::AppRootItem>("QQuickSystemSet", 1, 0, "AppRootItem");
        Q_UNUSED(rootType)
        s_component = new QQmlComponent(engine, QUrl(QStringLiteral("qrc:/setting/main.qml")), engine);
        if (!s_component->isReady())
            qWarning("%s", qUtf8Printable(s_component->errorString()));
    }
    if (!s_component->isReady())
        return nullptr;

    QObject *object = s_component->beginCreate(engine->rootContext());
    auto *root = qobject_cast<QSP::AppRootItem *>(object);
    if (!root) {
        s_component->completeCreate();
        delete object;
        return nullptr;
    }
    // Before completion, so that the bindings of the document first see the host's size.
    root->setWidth(width);
    root->setHeight(height);
    s_component->completeCreate();

    info.setScreenHeight(height);
    info.setRootPopupZ(rootPopupZ);
    info.setScreenWidth(width);
    info.setQmlEngine(engine);
    root->init(engine);
    return root;
}

void ImplSystemSet::open()
{
    if (QSP::AppRootItem *root = QSP::AppRootItem::instance())
        root->open();
}

void ImplSystemSet::close()
{
    if (QSP::AppRootItem *root = QSP::AppRootItem::instance())
        root->close();
}
