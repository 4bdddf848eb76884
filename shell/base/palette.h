#pragma once

#include "meyersingleton.h"
#include "shell/base/palettecolors.h"
#include "shell/base/theme.h"

#include <QtCore/QObject>
#include <QtGui/QFont>

namespace QSP {

/// The looks of the screen: its colours and font families. The documents see them as Palette of the module
/// QQuickSystemSet.Toolkit, of which each engine has its own object.
///
/// GUI thread only. Lives from its first use to the end of the process.
class Palette : public QObject, public PaletteColors, public MeyerSingleton<Palette>
{
    Q_OBJECT
    Q_PROPERTY(QColor accent MEMBER accent CONSTANT)
    Q_PROPERTY(QColor strongAccent MEMBER strongAccent CONSTANT)
    Q_PROPERTY(QColor accentFrame MEMBER accentFrame CONSTANT)
    Q_PROPERTY(QColor accentTint MEMBER accentTint CONSTANT)
    Q_PROPERTY(QColor accentGlow MEMBER accentGlow CONSTANT)
    Q_PROPERTY(QColor focus MEMBER focus CONSTANT)
    Q_PROPERTY(QColor background MEMBER background CONSTANT)
    Q_PROPERTY(QColor surface MEMBER surface CONSTANT)
    Q_PROPERTY(QColor markedSurface MEMBER markedSurface CONSTANT)
    Q_PROPERTY(QColor separator MEMBER separator CONSTANT)
    Q_PROPERTY(QColor track MEMBER track CONSTANT)
    Q_PROPERTY(QColor title MEMBER title CONSTANT)
    Q_PROPERTY(QColor text MEMBER text CONSTANT)
    Q_PROPERTY(QColor strongHint MEMBER strongHint CONSTANT)
    Q_PROPERTY(QColor hint MEMBER hint CONSTANT)
    Q_PROPERTY(QColor caption MEMBER caption CONSTANT)
    Q_PROPERTY(QColor disabledText MEMBER disabledText CONSTANT)
    Q_PROPERTY(QColor fieldText MEMBER fieldText CONSTANT)
    Q_PROPERTY(QColor fieldBorder MEMBER fieldBorder CONSTANT)
    Q_PROPERTY(QColor frame MEMBER frame CONSTANT)
    Q_PROPERTY(QColor success MEMBER success CONSTANT)
    Q_PROPERTY(QColor failure MEMBER failure CONSTANT)
    Q_PROPERTY(QString font READ font CONSTANT)
    Q_PROPERTY(QString titleFont READ titleFont CONSTANT)

public:
    Palette();

    /// Chooses the looks of all screens of the process: the first call does, the screen's own before it looks. A
    /// later one that says otherwise is refused with one warning.
    static void setTheme(const Theme &theme);
    /// Offers it to the documents; whoever reads one calls it first. Once a process, however often it is called.
    static void registerForDocuments();

    /// The family of all texts but titles; the host's without a theme.
    QString font() const;
    /// The family of the titles of pages.
    QString titleFont() const;

private:
    Theme m_theme;
};

/// The font of a text in @p pixelSize, of 1 at least: Qt knows no font of 0 pixels.
QFont textFont(qreal pixelSize);

} // namespace QSP
