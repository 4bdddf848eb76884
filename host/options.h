#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <optional>

/// What was asked for on the command line.
struct Options {
    enum class Language { English, Chinese };

    QSize size{1024, 600};
    QString library;
    QString scenario;
    QString applicationName = QStringLiteral("panel-host");
    /// Chosen elsewhere on the panel; without it the panel's own counts.
    std::optional<Language> language;
    /// The settings screen is the one that a host gets who asks for nothing.
    bool isStrict = false;
    bool isCompactLandscape = false;
    QStringList hiddenCards;
    /// Colours and fonts by name.
    QVariantMap theme;
    QString tourDirectory;
    /// Where to save what is shown; nobody looks on then.
    QString pictureFile;
    /// What the screen asks of the simulated panel, and what it reports, is printed.
    bool isJournalWanted = false;
    /// The panel begins with the settings open.
    bool isOpenWanted = false;
    bool isHelpWanted = false;

    bool isTour() const { return !tourDirectory.isEmpty(); }
    bool isPicture() const { return !pictureFile.isEmpty(); }
    bool needsDisplay() const { return !isTour() && !isPicture(); }

    /// Reads @p arguments (without the program's name). Null when something is
    /// wrong with them; @p error then says what.
    static std::optional<Options> read(const QStringList &arguments, QString *error);
    /// What --help prints.
    static QString help();
};
