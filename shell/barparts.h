#pragma once

#include <QtCore/QUrl>
#include <QtQuick/QQuickItem>

class QQuickImage;

namespace QSP {

// Pieces that menu, title bar and cards have in common.

/// Where an icon of the screen is.
QUrl iconUrl(const char *name);
/// An arrow that leads to a page or back; the caller places it.
QQuickImage *addArrowImage(QQuickItem *parent, const char *icon);

/// Runs @p update now and whenever the width of @p item changes, as long as @p context lives.
template <class Update> void followWidth(QQuickItem *item, QObject *context, Update update)
{
    update();
    QObject::connect(item, &QQuickItem::widthChanged, context, update);
}

} // namespace QSP
