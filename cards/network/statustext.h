#pragma once

#include "shell/base/palette.h"

class QQuickText;

namespace QSP {

/// Gives @p text a text of the network card that follows the language.
void setNetworkText(QQuickText *text, const char *source);

/// The text of a status row. Showing what it shows already costs next to nothing, and no repaint.
class StatusText
{
public:
    /// The item to write to; null until the row is built.
    void setItem(QQuickText *item) { m_item = item; }
    bool hasItem() const { return m_item != nullptr; }

    /// @p source is an untranslated text of static duration.
    void show(const char *source, const QColor &color = Palette::instance().text);

private:
    QQuickText *m_item = nullptr;
    const char *m_source = nullptr;
};

} // namespace QSP
