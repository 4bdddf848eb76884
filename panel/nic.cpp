#include "panel/nic.h"

#include <QtNetwork/QHostAddress>

namespace QSP {

QString dotted(HMI::IP address)
{
    return QHostAddress(static_cast<quint32>(address)).toString();
}

} // namespace QSP
