#include "host/panelservice.h"

#include "hmi/systemset.h"
#include "meyersingleton.h"

#include <QtCore/QFile>
#include <QtCore/QLibrary>

#include <array>

namespace PanelService {

bool loadScenario(const QString &file, QString *error)
{
    // Looked up by name, since only a simulated service has it: this host also runs with a real one.
    using LoadScenario = int (*)(const char *path, char *error, int errorSize);
    QLibrary service(QStringLiteral("hmisystemset"));
    const auto load = reinterpret_cast<LoadScenario>(service.resolve("HmiSimulatorLoadScenario"));
    if (!load) {
        *error = QStringLiteral("the service library of this panel is no simulator, it takes no scenario");
        return false;
    }

    std::array<char, 1024> reason{};
    if (load(QFile::encodeName(file).constData(), reason.data(), static_cast<int>(reason.size())) == 0)
        return true;
    *error = QString::fromUtf8(reason.data());
    return false;
}

void setLanguage(Options::Language language)
{
    MeyerSingleton<HMI::SystemSet>::instance().setLanguage(
        language == Options::Language::Chinese ? HMI::SystemSet::CHINESE : HMI::SystemSet::ENGLISH);
}

} // namespace PanelService
