#include "panel/secrets.h"

namespace QSP {

namespace {

// Volatile, or the compiler leaves out what nobody reads any more.
template <class Unit> void fillWithZeros(volatile Unit *units, int count)
{
    for (int i = 0; i < count; ++i)
        units[i] = 0;
}

} // namespace

// All the room, because what was deleted from the end is still there. Texts that are constants have none.
void overwrite(QString &secret)
{
    auto *units = reinterpret_cast<ushort *>(const_cast<QChar *>(secret.constData()));
    fillWithZeros(units, secret.capacity());
}

void overwrite(QByteArray &secret)
{
    fillWithZeros(const_cast<char *>(secret.constData()), secret.capacity());
}

void overwrite(std::string &secret)
{
    fillWithZeros(secret.data(), static_cast<int>(secret.size()));
}

} // namespace QSP
