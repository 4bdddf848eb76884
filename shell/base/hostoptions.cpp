#include "shell/base/hostoptions.h"

#include "shell/base/globalinfo.h"

#include <QtCore/QVariant>

#include <algorithm>
#include <array>
#include <optional>

namespace QSP {

namespace {

constexpr const char *languagesOption = "panelLanguages";
constexpr const char *keepLanguageOption = "panelKeepLanguage";
constexpr const char *confirmRebootOption = "panelConfirmReboot";
constexpr const char *compactLandscapeOption = "panelCompactLandscape";
constexpr const char *hiddenCardsOption = "panelHiddenCards";
constexpr const char *themeOption = "panelTheme";
constexpr std::array<const char *, 6> knownOptions = {languagesOption,     keepLanguageOption,
                                                      confirmRebootOption, compactLandscapeOption,
                                                      hiddenCardsOption,   themeOption};

void refuse(const char *option, const QString &reason)
{
    qWarning("The settings screen goes without %s: %s", option, qUtf8Printable(reason));
}

// Enough of it to find it, on one line of the log.
QString quoted(const QString &name)
{
    return QStringLiteral("\"%1\" ").arg(name.left(40).simplified());
}

// A name that is nearly right would otherwise do nothing, and nobody would know why.
void tellUnknown(const QObject &engine)
{
    const QList<QByteArray> names = engine.dynamicPropertyNames();
    for (const QByteArray &name : names) {
        const bool isMeantForUs =
            name.startsWith("panel") && name.size() > 5 && QChar::fromLatin1(name.at(5)).isUpper();
        const bool isKnown = std::any_of(knownOptions.begin(), knownOptions.end(),
                                         [&name](const char *option) { return name == option; });
        if (isMeantForUs && !isKnown)
            refuse(name.constData(), QStringLiteral("there is no such option"));
    }
}

bool readFlag(const QObject &engine, const char *option)
{
    const QVariant value = engine.property(option);
    // A text such as "false" would count as true.
    if (value.isValid() && value.userType() != QMetaType::Bool) {
        refuse(option, QStringLiteral("it is no bool"));
        return false;
    }
    return value.toBool();
}

/// The names of a list of which @p wrongWith has nothing to say; null when the option is not set or refused.
template <class WrongWith>
std::optional<QStringList> readNames(const QObject &engine, const char *option, WrongWith wrongWith)
{
    const QVariant value = engine.property(option);
    if (!value.isValid())
        return std::nullopt;
    if (value.userType() != QMetaType::QStringList) {
        refuse(option, QStringLiteral("it is no QStringList"));
        return std::nullopt;
    }
    const QStringList names = value.toStringList();
    for (const QString &name : names) {
        const QString reason = wrongWith(name);
        if (!reason.isEmpty()) {
            refuse(option, quoted(name) + reason);
            return std::nullopt;
        }
    }
    return names;
}

QVector<QLocale::Language> readLanguages(const QObject &engine)
{
    QVector<QLocale::Language> languages;
    const auto wrongWith = [&languages](const QString &name) {
        // What Qt does not know becomes the language C.
        const QLocale::Language language = QLocale(name).language();
        if (language == QLocale::C)
            return QStringLiteral("is no language");
        if (!GlobalInfo::hasCatalogue(language))
            return QStringLiteral("has no catalogue");
        if (languages.contains(language))
            return QStringLiteral("names a language that the list has already");
        languages << language;
        return QString();
    };
    const std::optional<QStringList> names = readNames(engine, languagesOption, wrongWith);
    if (!names)
        return HostOptions().languages;
    if (!names->isEmpty())
        return languages;
    refuse(languagesOption, QStringLiteral("the list is empty"));
    return HostOptions().languages;
}

QStringList readHiddenCards(const QObject &engine, const QStringList &cards)
{
    const auto wrongWith = [&cards](const QString &name) {
        return cards.contains(name)
                   ? QString()
                   : QStringLiteral("is no card; there are ") + cards.join(QStringLiteral(", "));
    };
    return readNames(engine, hiddenCardsOption, wrongWith).value_or(QStringList());
}

Theme readTheme(const QObject &engine)
{
    const QVariant value = engine.property(themeOption);
    if (!value.isValid())
        return {};
    QString fault;
    Theme theme = Theme::readFrom(value, &fault);
    if (!fault.isEmpty())
        refuse(themeOption, fault);
    return theme;
}

} // namespace

HostOptions HostOptions::readFrom(const QObject &engine, const QStringList &cards)
{
    tellUnknown(engine);
    HostOptions options;
    options.languages = readLanguages(engine);
    options.keepsLanguage = readFlag(engine, keepLanguageOption);
    options.confirmsReboot = readFlag(engine, confirmRebootOption);
    options.wantsCompactLandscape = readFlag(engine, compactLandscapeOption);
    options.theme = readTheme(engine);
    options.hiddenCards = readHiddenCards(engine, cards);
    return options;
}

} // namespace QSP
