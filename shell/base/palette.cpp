#include "shell/base/palette.h"

#include <QtQml/QQmlEngine>

namespace QSP {

void Palette::registerForDocuments()
{
    static const int _registered =
        qmlRegisterSingletonType<Palette>("QQuickSystemSet.Toolkit", 1, 0, "Palette",
                                          [](QQmlEngine *, QJSEngine *) -> QObject * { return new Palette; });
    Q_UNUSED(_registered)
}

} // namespace QSP
