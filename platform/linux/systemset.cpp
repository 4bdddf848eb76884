#include "linux/systemset_p.h"

#include <QtCore/QFile>

namespace HMI {

namespace {

// Where a test or a container keeps the files that the service reads and writes.
QString rootDirectory()
{
    return QFile::decodeName(qgetenv("PANELSETTINGS_ROOT"));
}

} // namespace

SystemSet::Private::Private() : service(HmiLinux::Root(rootDirectory())) {}

SystemSet::SystemSet() : d(new Private) {}

SystemSet::~SystemSet()
{
    delete d;
}

} // namespace HMI
