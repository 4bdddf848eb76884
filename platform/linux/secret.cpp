#include "linux/secret.h"

#include <cstring>

namespace HmiLinux {

namespace {

void clear(void *memory, std::size_t size)
{
    // A plain loop may be left out by the compiler: nobody reads what it wrote.
    ::explicit_bzero(memory, size);
}

} // namespace

Secret::~Secret()
{
    clear(m_utf8.data(), m_utf8.size());
}

void wipe(QString *text)
{
    // data() would make a copy and wipe that one.
    clear(const_cast<QChar *>(text->constData()), std::size_t(text->size()) * sizeof(QChar));
    text->clear();
}

} // namespace HmiLinux
