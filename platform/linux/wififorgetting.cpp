#include "linux/wififorgetting.h"

#include "linux/askall.h"
#include "linux/log.h"
#include "linux/nmnames.h"

namespace HmiLinux {

void forgetNetworks(const QDBusConnection &bus, const QStringList &profiles, const QString &device,
                    QObject *context, const std::function<void()> &done)
{
    QVector<QDBusMessage> questions;
    for (const QString &profile : profiles)
        questions.append(Nm::call(profile, Nm::profile(), "Delete"));
    const auto told = [](int, const QDBusMessage &answer) {
        if (isError(answer))
            qCWarning(wifiLog, "a network stays known: %s", qPrintable(reasonOf(answer)));
    };
    askAll(bus, questions, context, told, [bus, device, context, done] {
        if (device.isEmpty())
            return done();
        // With a profile that is in force the link goes too, and then this is refused: it is for one without a profile.
        ask(bus, Nm::call(device, Nm::device(), "Disconnect"), context,
            [done](const QDBusMessage &) { done(); });
    });
}

} // namespace HmiLinux
