#include "cards/wifi/wifiicon.h"

#include <QtQuick/private/qquickimage_p.h>

namespace QSP {

namespace {

constexpr QSize iconSourceSize(40, 40);

} // namespace

QUrl wifiSignalIcon(int strength)
{
    if (strength >= 80)
        return QStringLiteral("qrc:/setting/icons/4@2x.png");
    if (strength >= 60)
        return QStringLiteral("qrc:/setting/icons/3@2x.png");
    if (strength >= 40)
        return QStringLiteral("qrc:/setting/icons/2@2x.png");
    return QStringLiteral("qrc:/setting/icons/1@2x.png");
}

QQuickImage *addRowImage(QQuickItem *row, const QUrl &source, int rowHeight, int side)
{
    auto *image = new QQuickImage(row);
    image->setSourceSize(iconSourceSize);
    image->setSource(source);
    image->setFillMode(QQuickImage::PreserveAspectFit);
    image->setSize(QSizeF(side, side));
    // On a whole pixel, where an icon is sharp.
    const int y = (rowHeight - side) / 2;
    image->setY(y);
    return image;
}

} // namespace QSP
