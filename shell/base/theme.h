#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>

#include <optional>

class QVariant;

namespace QSP {

/// The looks that a host may choose: a few colours, from which the others follow, and the font families.
/// What is not told is as in a screen without a theme.
struct Theme {
    std::optional<QColor> accent;
    std::optional<QColor> background;
    std::optional<QColor> surface;
    std::optional<QColor> text;
    QString font;
    QString titleFont;

    /// Reads a map of names and values. A theme that is wrong in any part, or whose colours cannot be told from
    /// each other well enough, is refused as a whole: @p fault says why, and all is as without a theme.
    static Theme readFrom(const QVariant &value, QString *fault);

    friend bool operator==(const Theme &a, const Theme &b)
    {
        return a.accent == b.accent && a.background == b.background && a.surface == b.surface &&
               a.text == b.text && a.font == b.font && a.titleFont == b.titleFont;
    }
    friend bool operator!=(const Theme &a, const Theme &b) { return !(a == b); }
};

/// How well two colours can be told from each other, from 1 to 21, as accessibility guidelines count it.
qreal contrastOf(const QColor &one, const QColor &other);

} // namespace QSP
