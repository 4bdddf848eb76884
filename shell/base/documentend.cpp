#include "shell/base/documentend.h"

#include <QtQml/private/qqmlcontext_p.h>
#include <QtQml/private/qqmldata_p.h>

namespace QSP {

namespace {

void endDocument(const QObject *object)
{
    // Only the root object of a document has a context of its own.
    const QQmlData *data = QQmlData::get(object);
    if (data && data->ownContext)
        data->ownContext->invalidate();
}

} // namespace

void endDocuments(const QObject *root)
{
    const auto objects = root->findChildren<QObject *>();
    for (const QObject *object : objects)
        endDocument(object);
    endDocument(root);
}

} // namespace QSP
