#include "shell/cardinfo.h"

namespace QSP {

QStringList cardNames()
{
    QStringList names;
    for (const CardRow &row : cardTable())
        names << QLatin1String(row.name);
    return names;
}

} // namespace QSP
