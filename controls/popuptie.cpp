#include "controls/popuptie.h"

#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

namespace QSP {

void tieToParent(QQuickPopup *popup)
{
    using Connection = QMetaObject::Connection;
    auto tie = [popup, visible = Connection(), enabled = Connection()]() mutable {
        QObject::disconnect(visible);
        QObject::disconnect(enabled);
        const QQuickItem *item = popup->parentItem();
        if (!item)
            return;
        const auto followEnabled = [popup, item] { popup->setEnabled(item->isEnabled()); };
        visible = QObject::connect(item, &QQuickItem::visibleChanged, popup, &QQuickPopup::close);
        enabled = QObject::connect(item, &QQuickItem::enabledChanged, popup, followEnabled);
        followEnabled();
    };
    tie();
    QObject::connect(popup, &QQuickPopup::parentChanged, popup, tie);
    QObject::connect(popup, &QQuickPopup::windowChanged, popup, &QQuickPopup::close);
}

} // namespace QSP
