#include "shell/base/icon.h"

namespace QSP {

Icon::Icon(QQuickItem *parent) : QQuickImage(parent) {}

void Icon::registerType()
{
    static const int _registered = qmlRegisterType<Icon>("QQuickSystemSet.Toolkit", 1, 0, "Icon");
    Q_UNUSED(_registered)
}

void Icon::load()
{
    if (source().isEmpty())
        loadEmptyUrl();
    else
        loadPixmap(source());
}

} // namespace QSP
