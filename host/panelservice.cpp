#include "host/panelservice.h"

#include "hmi/systemset.h"
#include "meyersingleton.h"

#include <QtCore/QFile>
#include <QtCore/QLibrary>
#include <QtCore/QTime>

#include <array>
#include <cstdio>

namespace PanelService {

namespace {

// Looked up by name, since only a simulated service has it: this host also runs with a real one.
template <class Function> Function resolve(const char *symbol, const char *what, QString *error)
{
    QLibrary service(QStringLiteral("hmisystemset"));
    const auto function = reinterpret_cast<Function>(service.resolve(symbol));
    if (!function)
        *error =
            QStringLiteral("the service library of this panel is no simulator, it ") + QLatin1String(what);
    return function;
}

// On any thread. One call of the library, so that lines do not mix.
void printEntry(int isReport, const char *text)
{
    const QByteArray now = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")).toUtf8();
    std::printf("%s %s %s\n", now.constData(), isReport ? "<-" : "->", text);
    std::fflush(stdout);
}

} // namespace

bool loadScenario(const QString &file, QString *error)
{
    using LoadScenario = int (*)(const char *path, char *error, int errorSize);
    const auto load = resolve<LoadScenario>("HmiSimulatorLoadScenario", "takes no scenario", error);
    if (!load)
        return false;

    std::array<char, 1024> reason{};
    if (load(QFile::encodeName(file).constData(), reason.data(), static_cast<int>(reason.size())) == 0)
        return true;
    *error = QString::fromUtf8(reason.data());
    return false;
}

bool printJournal(QString *error)
{
    using WatchJournal = void (*)(void (*line)(int isReport, const char *text));
    const auto watch = resolve<WatchJournal>("HmiSimulatorWatchJournal", "keeps no journal", error);
    if (watch)
        watch(&printEntry);
    return watch != nullptr;
}

int adapters()
{
    return MeyerSingleton<HMI::SystemSet>::instance().getAllNIC();
}

void setLanguage(Options::Language language)
{
    MeyerSingleton<HMI::SystemSet>::instance().setLanguage(
        language == Options::Language::Chinese ? HMI::SystemSet::CHINESE : HMI::SystemSet::ENGLISH);
}

} // namespace PanelService
