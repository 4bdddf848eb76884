#include "shell/base/palette.h"

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>

#include <optional>

namespace QSP {

namespace {

std::optional<Theme> &chosenTheme()
{
    static std::optional<Theme> theme;
    return theme;
}

} // namespace

Palette::Palette()
    : PaletteColors(of(chosenTheme().value_or(Theme()))), m_theme(chosenTheme().value_or(Theme()))
{}

void Palette::setTheme(const Theme &theme)
{
    std::optional<Theme> &chosen = chosenTheme();
    if (!chosen)
        chosen = theme;
    else if (*chosen != theme)
        qWarning(
            "The settings screen goes without panelTheme: the first screen of the process chose the theme");
}

void Palette::registerForDocuments()
{
    static const int _registered =
        qmlRegisterSingletonType<Palette>("QQuickSystemSet.Toolkit", 1, 0, "Palette",
                                          [](QQmlEngine *, QJSEngine *) -> QObject * { return new Palette; });
    Q_UNUSED(_registered)
}

QString Palette::font() const
{
    return m_theme.font.isEmpty() ? QGuiApplication::font().family() : m_theme.font;
}

QString Palette::titleFont() const
{
    return m_theme.titleFont.isEmpty() ? QStringLiteral("1") : m_theme.titleFont;
}

QFont textFont(qreal pixelSize)
{
    QFont font = QGuiApplication::font();
    font.setFamily(Palette::instance().font());
    font.setPixelSize(qMax(1, static_cast<int>(pixelSize)));
    return font;
}

} // namespace QSP
