#include "host/options.h"

#include <QtCore/QRegularExpression>

namespace {

// Walks over the arguments; "--name=value" and "--name value" are the same.
class Reader
{
public:
    explicit Reader(QStringList arguments) : m_left(std::move(arguments)) {}

    bool atEnd() const { return m_left.isEmpty(); }

    QString nextName()
    {
        QString argument = m_left.takeFirst();
        const int equals = argument.startsWith(QLatin1String("--")) ? argument.indexOf(QLatin1Char('=')) : -1;
        if (equals < 0)
            return argument;
        m_left.prepend(argument.mid(equals + 1));
        m_isValueGlued = true;
        return argument.left(equals);
    }

    /// The value of the option just read; null when there is none.
    QString value()
    {
        if (!m_isValueGlued && (m_left.isEmpty() || m_left.first().startsWith(QLatin1String("--"))))
            return {};
        m_isValueGlued = false;
        return m_left.takeFirst();
    }

    bool hasGluedValue() const { return m_isValueGlued; }

private:
    QStringList m_left;
    bool m_isValueGlued = false;
};

bool readSize(const QString &text, QSize *size)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,5})x([0-9]{1,5})\\z"));
    const QRegularExpressionMatch match = form.match(text);
    *size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    // Smaller than this no panel is made, larger than this no window can be.
    return match.hasMatch() && size->width() >= 240 && size->height() >= 240 && size->width() <= 8192 &&
           size->height() <= 8192;
}

bool readLanguage(const QString &text, std::optional<Options::Language> *language)
{
    *language = text == QLatin1String("zh") ? Options::Language::Chinese : Options::Language::English;
    return text == QLatin1String("en") || text == QLatin1String("zh");
}

bool readTheme(const QString &text, QVariantMap *theme)
{
    const QStringList entries = text.split(QLatin1Char(','));
    for (const QString &entry : entries) {
        const int equals = entry.indexOf(QLatin1Char('='));
        if (equals < 1 || equals == entry.size() - 1)
            return false;
        theme->insert(entry.left(equals), entry.mid(equals + 1));
    }
    return true;
}

} // namespace

std::optional<Options> Options::read(const QStringList &arguments, QString *error)
{
    Options options;
    Reader reader(arguments);
    while (!reader.atEnd()) {
        const QString name = reader.nextName();
        const auto fail = [&](const QString &what) {
            *error = name + QStringLiteral(": ") + what;
            return std::nullopt;
        };

        if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
            options.isHelpWanted = true;
        } else if (name == QLatin1String("--open")) {
            options.isOpenWanted = true;
        } else if (name == QLatin1String("--journal")) {
            options.isJournalWanted = true;
        } else if (name == QLatin1String("--strict")) {
            options.isStrict = true;
        } else if (name == QLatin1String("--compact-landscape")) {
            options.isCompactLandscape = true;
        } else {
            const QStringList withValue = {"--size", "--library", "--scenario",   "--as",   "--language",
                                           "--tour", "--picture", "--hide-cards", "--theme"};
            if (!withValue.contains(name))
                return fail(QStringLiteral("no such option"));
            const QString value = reader.value();
            if (value.isEmpty())
                return fail(QStringLiteral("a value is missing"));
            if (name == QLatin1String("--size") && !readSize(value, &options.size))
                return fail(QStringLiteral("a size is WIDTHxHEIGHT, from 240x240 to 8192x8192, not ") +
                            value);
            if (name == QLatin1String("--language") && !readLanguage(value, &options.language))
                return fail(QStringLiteral("a language is en or zh, not ") + value);
            if (name == QLatin1String("--theme") && !readTheme(value, &options.theme))
                return fail(QStringLiteral("a theme is NAME=VALUE with commas, not ") + value);
            if (name == QLatin1String("--library"))
                options.library = value;
            if (name == QLatin1String("--scenario"))
                options.scenario = value;
            if (name == QLatin1String("--as"))
                options.applicationName = value;
            if (name == QLatin1String("--tour"))
                options.tourDirectory = value;
            if (name == QLatin1String("--picture"))
                options.pictureFile = value;
            if (name == QLatin1String("--hide-cards"))
                options.hiddenCards = value.split(QLatin1Char(','));
        }
        if (reader.hasGluedValue())
            return fail(QStringLiteral("takes no value"));
    }
    if (options.isTour() && options.isPicture()) {
        *error = QStringLiteral("--tour: goes without --picture, it takes its own");
        return std::nullopt;
    }
    if (options.isTour() && options.isOpenWanted) {
        *error = QStringLiteral("--tour: goes without --open, it begins on the operator's page");
        return std::nullopt;
    }
    return options;
}

QString Options::help()
{
    return QStringLiteral(
        "Usage: panel-host [OPTIONS]\n"
        "\n"
        "An operator panel to try the settings screen with. The key beside the glass\n"
        "leads into the settings and back; Esc leads back too.\n"
        "\n"
        "  --size WxH         size of the panel in pixels (1024x600)\n"
        "  --scenario FILE    the state, speed and faults of the simulated panel\n"
        "  --as NAME          application name; \"vistor\" is offered Exit in place of Reboot\n"
        "  --language en|zh   language chosen elsewhere on the panel, if not its own\n"
        "  --strict           the settings as a host gets them who asks for nothing: English\n"
        "                     alone to choose from and to begin with, and a restart without\n"
        "                     a question\n"
        "  --compact-landscape\n"
        "                     a screen under 800 wide that lies is laid out as one that stands\n"
        "  --hide-cards LIST  cards that this panel does not have, by their names, with\n"
        "                     commas: brightness,buzzer\n"
        "  --theme LIST       colours and fonts of the settings, with commas:\n"
        "                     accent=#007A5A,background=#D8E4DE,font=DejaVu Sans\n"
        "  --open             begin with the settings open\n"
        "  --journal          print what is asked of the simulated panel and what it reports\n"
        "  --library FILE     the settings screen to load, if not the one that belongs here;\n"
        "                     a name without a slash is searched where the system has its\n"
        "                     libraries, so write ./FILE for one in the current directory\n"
        "  --tour DIR         walk the screen by real clicks, without a display, and put\n"
        "                     numbered pictures into DIR; fails on any warning. What the panel\n"
        "                     has no adapter for is left out\n"
        "  --picture FILE     save a picture of what is shown first, without a display, and end;\n"
        "                     the end of FILE's name says in which format: .png, .bmp, .ppm\n"
        "  --help             this\n");
}
