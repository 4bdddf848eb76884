#include "host/endingsignals.h"
#include "host/operatorpanel.h"
#include "host/options.h"
#include "host/panelservice.h"
#include "host/picture.h"
#include "host/pluginloader.h"
#include "host/tour/messagewatch.h"
#include "host/tour/tour.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>

#include <cstdio>

namespace {

constexpr int failed = 1;
constexpr int wronglyCalled = 2;

int complain(const QString &what, int exitCode)
{
    std::fprintf(stderr, "panel-host: %s\n", qUtf8Printable(what));
    return exitCode;
}

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

// What the settings of this panel are to be, unless they are to be as they come.
void setOptions(OperatorPanel *panel, const Options &options)
{
    if (!options.isStrict) {
        panel->setOption("panelLanguages", QStringList{QStringLiteral("en"), QStringLiteral("zh_CN")});
        panel->setOption("panelKeepLanguage", true);
        panel->setOption("panelConfirmReboot", true);
    }
    if (options.isCompactLandscape)
        panel->setOption("panelCompactLandscape", true);
    if (!options.hiddenCards.isEmpty())
        panel->setOption("panelHiddenCards", options.hiddenCards);
    if (!options.theme.isEmpty())
        panel->setOption("panelTheme", options.theme);
}

bool hasDisplay()
{
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            return true;
    }
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    QString error;
    const std::optional<Options> options = Options::read(argumentsOf(argc, argv), &error);
    if (!options)
        return complain(error + QStringLiteral(" (--help tells the options)"), wronglyCalled);
    if (options->isHelpWanted) {
        std::fputs(qUtf8Printable(Options::help()), stdout);
        return 0;
    }
    if (options->needsDisplay() && !hasDisplay())
        return complain(QStringLiteral("there is no display; --picture and --tour go without"), failed);
    if (!options->needsDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }

    // A walk changes whatever it comes by: with the service of a real panel only a sandbox is to be changed.
    if (options->isTour() && qEnvironmentVariableIsEmpty("PANEL_HARNESS"))
        qputenv("PANELSETTINGS_READ_ONLY", "1");

    // Qt wants a place of its own for its sockets, and warns when the session offers none.
    QTemporaryDir runtimeDirectory;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));

    // The options are all ours: the toolkit gets none of them to interpret.
    int noArguments = 1;
    QGuiApplication application(noArguments, argv);
    const EndingSignals endingSignals([&runtimeDirectory] { runtimeDirectory.remove(); });
    QCoreApplication::setApplicationName(options->applicationName);
    const QString family = QStringLiteral("WenQuanYi Micro Hei");
    QGuiApplication::setFont(QFont(family));
    // The titles of the settings screen ask for a family named "1".
    QFont::insertSubstitution(QStringLiteral("1"), family);

    if (!options->scenario.isEmpty() && !PanelService::loadScenario(options->scenario, &error))
        return complain(error, wronglyCalled);
    if (options->isJournalWanted && !PanelService::printJournal(&error))
        return complain(error, wronglyCalled);

    if (options->isTour())
        MessageWatch::install();
    PluginLoader loader;
    std::shared_ptr<ISystemSet> settings =
        loader.load(options->library.isEmpty() ? PluginLoader::ownLibrary() : options->library);
    if (!settings)
        return complain(QStringLiteral("no settings screen: ") + loader.errorString(), failed);

    OperatorPanel panel(options->size,
                        options->isTour() ? OperatorPanel::Frame::None : OperatorPanel::Frame::WithKey);
    setOptions(&panel, *options);
    // A screen that keeps the panel's language has to find it; one that begins in English follows it when opened.
    if (options->language && !options->isStrict)
        PanelService::setLanguage(*options->language);
    if (!panel.addSettings(std::move(settings)))
        return complain(QStringLiteral("the settings screen could not be built"), failed);
    if (options->language && options->isStrict)
        PanelService::setLanguage(*options->language);

    if (options->isOpenWanted)
        panel.openSettings();

    panel.window()->show();
    if (options->isTour())
        return walkTour(panel.window(), *options) ? 0 : failed;
    if (options->isPicture())
        return savePicture(panel.window(), options->pictureFile, &error) ? 0 : complain(error, failed);
    return QGuiApplication::exec();
}
