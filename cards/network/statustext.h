#pragma once

#include <QtGui/QColor>

class QQuickText;

namespace QSP {

/// Gives @p text a text of the network card that follows the language.
void setNetworkText(QQuickText *text, const char *source);

/// The text of a status row. Showing what it shows already costs next to nothing, and no repaint.
class StatusText
{
public:
    static constexpr QRgb normal = 0xFF1D2129;
    static constexpr QRgb error = 0xFFFF4D4F;
    static constexpr QRgb good = 0xFF00BC79;

    /// The item to write to; null until the row is built.
    void setItem(QQuickText *item) { m_item = item; }
    bool hasItem() const { return m_item != nullptr; }

    /// @p source is an untranslated text of static duration.
    void show(const char *source, QRgb color = normal);

private:
    QQuickText *m_item = nullptr;
    const char *m_source = nullptr;
};

} // namespace QSP
