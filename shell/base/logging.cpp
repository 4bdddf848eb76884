#include "shell/base/logging.h"

namespace QSP {

Q_LOGGING_CATEGORY(logShell, "panelsettings.shell", QtWarningMsg)
Q_LOGGING_CATEGORY(logNetwork, "panelsettings.network", QtWarningMsg)
Q_LOGGING_CATEGORY(logWifi, "panelsettings.wifi", QtWarningMsg)
Q_LOGGING_CATEGORY(logDevice, "panelsettings.device", QtWarningMsg)
Q_LOGGING_CATEGORY(logService, "panelsettings.service", QtWarningMsg)
Q_LOGGING_CATEGORY(logKeyboard, "panelsettings.keyboard", QtWarningMsg)

void logReport(const char *operation, Qt::HANDLE thread, bool isHeard)
{
    qCDebug(logDevice, "%s: the service reported on thread %p%s", operation, thread,
            isHeard ? "" : ", and nobody waits for it any more");
}

} // namespace QSP
