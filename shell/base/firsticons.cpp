#include "shell/base/firsticons.h"

#include "shell/base/iconpixels.h"

namespace QSP {

FirstIcons::FirstIcons()
{
    for (const IconPixels &icon : g_iconPixels) {
        const QUrl url(QLatin1String("qrc:/setting/icons/") + QLatin1String(icon.name));
        // Another screen may have brought it. A second one under the same address would be forgotten with the first.
        if (QQuickPixmap::isCached(url, QRect(), QSize(), 0, QQuickImageProviderOptions())) {
            m_icons.emplace_back(nullptr, url);
            continue;
        }
        // Not a copy: the pixels stay where the library has them, which is never unmapped.
        m_icons.emplace_back(url, QImage(reinterpret_cast<const uchar *>(icon.pixels), icon.side, icon.side,
                                         QImage::Format_ARGB32_Premultiplied));
    }
}

} // namespace QSP
