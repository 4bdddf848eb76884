#include "shell/base/documenttext.h"

#include "shell/base/documentalias.h"
#include "shell/base/multilingualtext.h"

#include <QtQuick/private/qquicktext_p.h>

#include <utility>

namespace QSP {

void setDocumentText(const QQuickItem *card, const char *alias, std::function<QString()> textOf)
{
    setMultilingualText(aliasOf<QQuickText>(card, alias), std::move(textOf));
}

} // namespace QSP
