#include "cards/network/statustext.h"

#include "shell/base/multilingualtext.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

void setNetworkText(QQuickText *text, const char *source)
{
    setMultilingualText(text, [source] { return QCoreApplication::translate("CardNetwork", source); });
}

void StatusText::show(const char *source, QRgb color)
{
    if (!m_item)
        return;
    if (qstrcmp(m_source, source) != 0) {
        m_source = source;
        setNetworkText(m_item, source);
    }
    m_item->setColor(QColor::fromRgba(color));
}

} // namespace QSP
