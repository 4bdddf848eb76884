#pragma once

#include <QtCore/QString>

#include <string>

namespace QSP {

// Memory that is given back keeps what was in it. These fill the room of a secret with zeros, also for
// whoever shares it; its length stays.

void overwrite(QString &secret);
void overwrite(QByteArray &secret);
void overwrite(std::string &secret);

} // namespace QSP
