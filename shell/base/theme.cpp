#include "shell/base/theme.h"

#include "shell/base/palettecolors.h"

#include <QtCore/QVariant>
#include <QtGui/QFontDatabase>

#include <array>
#include <cmath>

namespace QSP {

namespace {

// What accessibility guidelines demand of texts, and of what is larger than a text.
constexpr qreal textContrast = 4.5;
constexpr qreal shapeContrast = 3.0;
// The icons are drawn in dark colours.
constexpr qreal leastSurfaceLuminance = 0.6;

qreal linear(qreal channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

qreal luminanceOf(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

struct ColorEntry {
    const char *name;
    std::optional<QColor> Theme::*color;
};

struct FontEntry {
    const char *name;
    QString Theme::*family;
};

constexpr std::array<ColorEntry, 4> colorEntries = {{{"accent", &Theme::accent},
                                                     {"background", &Theme::background},
                                                     {"surface", &Theme::surface},
                                                     {"text", &Theme::text}}};
constexpr std::array<FontEntry, 2> fontEntries = {{{"font", &Theme::font}, {"titleFont", &Theme::titleFont}}};

// What is wrong with one entry, which it puts into the theme; empty when nothing is.
QString takeEntry(Theme &theme, const QString &name, const QVariant &value)
{
    for (const ColorEntry &entry : colorEntries) {
        if (name != QLatin1String(entry.name))
            continue;
        // Qt itself would warn of a name that it does not know.
        const bool isUnknown =
            value.userType() == QMetaType::QString && !QColor::isValidColor(value.toString());
        const QColor color = isUnknown ? QColor() : value.value<QColor>();
        if (!color.isValid() || color.alpha() != 255)
            return name + QStringLiteral(" is no opaque colour");
        theme.*entry.color = color.toRgb();
        return {};
    }
    for (const FontEntry &entry : fontEntries) {
        if (name != QLatin1String(entry.name))
            continue;
        const QString family = value.toString();
        if (!QFontDatabase().hasFamily(family))
            return name + QStringLiteral(" is no family that is installed");
        theme.*entry.family = family;
        return {};
    }
    return QStringLiteral("there is no \"%1\" in a theme").arg(name.left(40).simplified());
}

QString contrastFault(const Theme &theme)
{
    const PaletteColors colors = PaletteColors::of(theme);
    struct Demand {
        const char *what;
        const char *measure;
        qreal is;
        qreal least;
    };
    const std::array<Demand, 6> demands = {
        {{"text on the surface", "contrast", contrastOf(colors.text, colors.surface), textContrast},
         {"text on the background", "contrast", contrastOf(colors.text, colors.background), textContrast},
         {"hints on the surface", "contrast", contrastOf(colors.caption, colors.surface), shapeContrast},
         {"the accent on the surface", "contrast", contrastOf(colors.accent, colors.surface), shapeContrast},
         {"white on the accent", "contrast", contrastOf(Qt::white, colors.accent), shapeContrast},
         {"dark icons on the surface", "luminance", luminanceOf(colors.surface), leastSurfaceLuminance}}};
    for (const Demand &demand : demands) {
        if (demand.is < demand.least)
            return QStringLiteral("%1: %2 %3, but at least %4 is needed")
                .arg(QLatin1String(demand.what), QLatin1String(demand.measure))
                .arg(demand.is, 0, 'f', 2)
                .arg(demand.least, 0, 'f', 1);
    }
    return {};
}

} // namespace

Theme Theme::readFrom(const QVariant &value, QString *fault)
{
    if (value.userType() != QMetaType::QVariantMap) {
        *fault = QStringLiteral("it is no QVariantMap");
        return {};
    }
    Theme theme;
    const QVariantMap entries = value.toMap();
    for (auto entry = entries.begin(); entry != entries.end() && fault->isEmpty(); ++entry)
        *fault = takeEntry(theme, entry.key(), entry.value());
    if (fault->isEmpty())
        *fault = contrastFault(theme);
    return fault->isEmpty() ? theme : Theme();
}

qreal contrastOf(const QColor &one, const QColor &other)
{
    const qreal a = luminanceOf(one);
    const qreal b = luminanceOf(other);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

} // namespace QSP
