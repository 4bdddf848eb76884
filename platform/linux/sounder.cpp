#include "linux/sounder.h"

#include "linux/config.h"
#include "linux/evdevsounder.h"
#include "linux/gpiosounder.h"
#include "linux/log.h"

#include <QtCore/QDir>

namespace HmiLinux {

namespace {

const QString &inputDirectory()
{
    static const QString directory = QStringLiteral("/dev/input/");
    return directory;
}

std::unique_ptr<Sounder> openInput(const Root &root, const QString &device, int frequency)
{
    auto sounder = std::make_unique<EvdevSounder>(root.path(device), frequency);
    if (sounder->isOpen())
        return sounder;
    qCWarning(deviceLog, "the buzzer %s cannot be opened", qPrintable(device));
    return nullptr;
}

} // namespace

std::unique_ptr<Sounder> makeSounder(const Root &root, const Config &config)
{
    if (config.buzzer == QLatin1String("none"))
        return nullptr;
    if (config.buzzer.startsWith(inputDirectory()))
        return openInput(root, config.buzzer, config.buzzerFrequency);
    if (config.buzzer != QLatin1String("auto"))
        return std::make_unique<GpioSounder>(root, config.buzzer);
    const QStringList devices =
        QDir(root.path(inputDirectory()))
            .entryList({QStringLiteral("event*")}, QDir::System | QDir::Files, QDir::Name);
    for (const QString &device : devices) {
        if (EvdevSounder::canSound(root.path(inputDirectory() + device)))
            return openInput(root, inputDirectory() + device, config.buzzerFrequency);
    }
    return nullptr;
}

} // namespace HmiLinux
