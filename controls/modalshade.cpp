#include "controls/modalshade.h"

#include "shell/base/embeddedcomponent.h"
#include "shell/base/globalinfo.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQuickTemplates2/private/qquickoverlay_p.h>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

namespace QSP {

void shadeBehind(QQuickPopup *popup)
{
    QQmlEngine *engine = GlobalInfo::instance().qmlEngine();
    if (!engine)
        return;
    // What a popup makes of components, such as its shade, needs a context.
    QQmlEngine::setContextForObject(popup, engine->rootContext());
    // Where no document has imported the toolkit's controls yet, the overlay would have no properties
    // to attach; importing them for this alone would keep the operator waiting.
    static const int overlayType = qmlRegisterAnonymousType<QQuickOverlay>("QQuickSystemSet", 1);
    Q_UNUSED(overlayType)
    static EmbeddedComponent shade;
    if (auto *overlay =
            qobject_cast<QQuickOverlayAttached *>(qmlAttachedPropertiesObject<QQuickOverlay>(popup)))
        overlay->setModal(shade.get(QUrl(QStringLiteral("qrc:/setting/flatui/ModalShade.qml")), engine));
    // The toolkit makes a context for the shade at each opening and keeps it as long as the popup.
    QObject::connect(popup, &QQuickPopup::closed, popup, [popup] {
        const auto contexts = popup->findChildren<QQmlContext *>(QString(), Qt::FindDirectChildrenOnly);
        for (QQmlContext *context : contexts)
            context->deleteLater();
    });
}

} // namespace QSP
