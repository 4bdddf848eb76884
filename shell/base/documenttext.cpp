#include "shell/base/documenttext.h"

#include "shell/base/multilingualtext.h"

#include <QtCore/QVariant>
#include <QtQuick/private/qquicktext_p.h>

#include <utility>

namespace QSP {

void setDocumentText(const QQuickItem *card, const char *alias, std::function<QString()> textOf)
{
    setMultilingualText(qobject_cast<QQuickText *>(card->property(alias).value<QObject *>()),
                        std::move(textOf));
}

} // namespace QSP
