#include "tests/linux/networkmanager/usage.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <malloc.h>
#include <unistd.h>

namespace {

int entriesOf(const char *directory)
{
    return QDir(QString::fromLatin1(directory)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size();
}

qint64 residentMemory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

} // namespace

void Usage::countExactly(char **argv)
{
    const char *const variable = "GLIBC_TUNABLES";
    if (qEnvironmentVariableIsSet(variable))
        return;
    qputenv(variable, "glibc.malloc.tcache_count=0");
    ::execv("/proc/self/exe", argv);
}

Usage Usage::now()
{
    Usage usage;
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    const struct mallinfo2 heap = ::mallinfo2();
    usage.heap = qint64(heap.uordblks) + qint64(heap.hblkhd);
#endif
    usage.resident = residentMemory();
    usage.files = entriesOf("/proc/self/fd");
    usage.threads = entriesOf("/proc/self/task");
    return usage;
}
