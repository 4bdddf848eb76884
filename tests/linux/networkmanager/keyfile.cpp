#include "tests/linux/networkmanager/keyfile.h"

#include <QtCore/QList>

std::optional<QMap<QByteArray, QByteArray>> readKeyFile(const QByteArray &contents)
{
    if (!contents.endsWith('\n'))
        return std::nullopt;
    QMap<QByteArray, QByteArray> values;
    QByteArray section;
    const QList<QByteArray> lines = contents.split('\n');
    for (const QByteArray &line : lines) {
        if (line.isEmpty())
            continue;
        if (line.startsWith('[') && line.endsWith(']')) {
            section = line.mid(1, line.size() - 2);
            continue;
        }
        const int sign = line.indexOf('=');
        const QByteArray key = section + '.' + line.left(sign);
        if (sign <= 0 || section.isEmpty() || values.contains(key))
            return std::nullopt;
        values.insert(key, line.mid(sign + 1));
    }
    return values;
}
