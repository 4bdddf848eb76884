#include "shell/barparts.h"

#include <QtQuick/private/qquickimage_p.h>

namespace QSP {

QUrl iconUrl(const char *name)
{
    return QUrl(QLatin1String("qrc:/setting/icons/") + QLatin1String(name));
}

QQuickImage *addArrowImage(QQuickItem *parent, const char *icon)
{
    auto *image = new QQuickImage(parent);
    image->setSourceSize({64, 64});
    image->setSource(iconUrl(icon));
    return image;
}

} // namespace QSP
