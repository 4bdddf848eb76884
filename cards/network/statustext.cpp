#include "cards/network/statustext.h"

#include "shell/base/logging.h"
#include "shell/base/multilingualtext.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

void setNetworkText(QQuickText *text, const char *source)
{
    setMultilingualText(text, [source] { return QCoreApplication::translate("CardNetwork", source); });
}

void StatusText::show(const char *source, const QColor &color)
{
    if (!m_item)
        return;
    if (qstrcmp(m_source, source) != 0) {
        qCDebug(logNetwork, "status: %s", source);
        m_source = source;
        setNetworkText(m_item, source);
    }
    m_item->setColor(color);
}

} // namespace QSP
