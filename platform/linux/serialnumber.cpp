#include "linux/serialnumber.h"

#include "linux/config.h"
#include "linux/log.h"
#include "linux/root.h"

#include <QtCore/QStringList>

namespace HmiLinux {

namespace {

// The device tree ends its texts in NUL, files end them in a line feed.
QString textOf(QByteArray contents)
{
    const int end = contents.indexOf('\0');
    if (end >= 0)
        contents.truncate(end);
    return QString::fromUtf8(contents).trimmed();
}

} // namespace

std::string readSerialNumber(const Root &root, const Config &config)
{
    const bool isAutomatic = config.serialNumber == QLatin1String("auto");
    const QStringList places = isAutomatic ? QStringList{QStringLiteral("/proc/device-tree/serial-number"),
                                                         QStringLiteral("/sys/class/dmi/id/product_serial")}
                                           : QStringList{config.serialNumber};
    for (const QString &place : places) {
        if (const std::optional<QByteArray> contents = root.read(place))
            return textOf(*contents).toStdString();
    }
    if (!isAutomatic)
        qCWarning(deviceLog, "the serial number cannot be read from %s", qPrintable(config.serialNumber));
    return {};
}

} // namespace HmiLinux
