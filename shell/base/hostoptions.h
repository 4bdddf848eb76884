#pragma once

#include "shell/base/theme.h"

#include <QtCore/QLocale>
#include <QtCore/QStringList>
#include <QtCore/QVector>

class QObject;

namespace QSP {

/// What a host wants otherwise than usual; a screen that is built without any has what stands here.
///
/// The host says it by properties of its engine, which are read once for each screen: what it sets later counts
/// for the next one.
struct HostOptions {
    /// The entries of the list of languages, each once, in their order.
    QVector<QLocale::Language> languages = {QLocale::English};
    /// The first screen of the process begins in the language that the service has.
    bool keepsLanguage = false;
    /// Reboot asks before it restarts the panel.
    bool confirmsReboot = false;
    /// A screen that is narrow and lies is laid out as one that stands.
    bool wantsCompactLandscape = false;
    /// Colours and fonts; see Palette::setTheme() for when it counts.
    Theme theme;
    /// Names of cards that this panel does not have, see CardRow.
    QStringList hiddenCards;

    /// Reads the properties of @p engine; @p cards are the names that a card can have. A value that is wrong in
    /// any part is refused as a whole, with one warning, and an option that does not exist is told likewise.
    static HostOptions readFrom(const QObject &engine, const QStringList &cards);
};

} // namespace QSP
