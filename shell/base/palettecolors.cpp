#include "shell/base/palettecolors.h"

#include "shell/base/theme.h"

namespace QSP {

namespace {

QColor mixed(const QColor &from, const QColor &to, qreal part)
{
    const auto channel = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {channel(from.red(), to.red()), channel(from.green(), to.green()),
            channel(from.blue(), to.blue())};
}

// The nearest shade of it on which a white text can be read.
QColor forWhiteText(QColor color)
{
    constexpr qreal readable = 4.5;
    while (contrastOf(Qt::white, color) < readable)
        color = mixed(color, Qt::black, 0.05);
    return color;
}

} // namespace

PaletteColors PaletteColors::of(const Theme &theme)
{
    PaletteColors colors;
    colors.background = theme.background.value_or(colors.background);
    if (theme.accent) {
        colors.accent = *theme.accent;
        colors.strongAccent = forWhiteText(*theme.accent);
        colors.focus = colors.strongAccent;
        colors.accentFrame = mixed(*theme.accent, Qt::white, 0.3);
        colors.accentTint = mixed(*theme.accent, Qt::white, 0.6);
        colors.accentGlow = mixed(*theme.accent, Qt::white, 0.7);
    }
    if (theme.text || theme.surface) {
        const QColor text = theme.text.value_or(colors.text);
        const QColor surface = theme.surface.value_or(colors.surface);
        colors.text = text;
        colors.title = text;
        colors.fieldText = text;
        colors.surface = surface;
        // As far from the text as without a theme.
        colors.strongHint = mixed(text, surface, 0.22);
        colors.hint = mixed(text, surface, 0.32);
        colors.caption = mixed(text, surface, 0.46);
        colors.disabledText = mixed(text, surface, 0.67);
        colors.track = mixed(text, surface, 0.76);
        colors.fieldBorder = mixed(text, surface, 0.87);
        colors.separator = mixed(text, surface, 0.88);
        colors.frame = mixed(text, surface, 0.89);
        colors.markedSurface = mixed(text, surface, 0.94);
    }
    return colors;
}

} // namespace QSP
