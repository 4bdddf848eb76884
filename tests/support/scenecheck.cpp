#include "tests/support/scenecheck.h"

#include <QtCore/QDebug>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquickwindow_p.h>

namespace SceneCheck {

namespace {

QString kindOfFault(QQuickItem *item)
{
    const QQuickItemPrivate *state = QQuickItemPrivate::get(item);
    if (!state->window && state->prevDirtyItem)
        return QStringLiteral("is in no window and is to be painted");
    if (!state->window)
        return state->itemNodeInstance ? QStringLiteral("is in no window and has a node") : QString();
    if (const QQuickItem *parent = state->parentItem) {
        return parent->window() == state->window
                   ? QString()
                   : QStringLiteral("is in another window than what is around it");
    }
    if (item == state->window->contentItem() ||
        QQuickWindowPrivate::get(state->window)->parentlessItems.contains(item))
        return {};
    return QStringLiteral("is in a window that does not know it");
}

} // namespace

QString faultOf(QQuickItem *item)
{
    const QString fault = kindOfFault(item);
    if (fault.isEmpty())
        return {};
    QString text;
    QDebug(&text) << item << "in" << item->parentItem();
    return text + QLatin1Char(' ') + fault;
}

QString faultBelow(const QObject *root)
{
    const auto items = root->findChildren<QQuickItem *>();
    for (QQuickItem *item : items) {
        QString fault = faultOf(item);
        if (!fault.isEmpty())
            return fault;
    }
    return {};
}

} // namespace SceneCheck
