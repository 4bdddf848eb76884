#include "cards/modalshade.h"

#include "controls/dialog.h"
#include "shell/embeddedcomponent.h"
#include "shell/globalinfo.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQuickTemplates2/private/qquickoverlay_p.h>

namespace QSP {

void shadeBehind(Dialog *dialog)
{
    QQmlEngine *engine = GlobalInfo::instance().qmlEngine();
    if (!engine)
        return;
    // What a popup makes of components, such as its shade, needs a context.
    QQmlEngine::setContextForObject(dialog, engine->rootContext());
    static EmbeddedComponent shade;
    if (auto *overlay =
            qobject_cast<QQuickOverlayAttached *>(qmlAttachedPropertiesObject<QQuickOverlay>(dialog)))
        overlay->setModal(shade.get(QUrl(QStringLiteral("qrc:/setting/flatui/ModalShade.qml")), engine));
    // The toolkit makes a context for the shade at each opening and keeps it as long as the popup.
    QObject::connect(dialog, &QQuickPopup::closed, dialog, [dialog] {
        const auto contexts = dialog->findChildren<QQmlContext *>(QString(), Qt::FindDirectChildrenOnly);
        for (QQmlContext *context : contexts)
            context->deleteLater();
    });
}

} // namespace QSP
