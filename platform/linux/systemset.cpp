#include "linux/systemset_p.h"

#include "meyersingleton.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

namespace HMI {

namespace {

// Where a test or a container keeps the files that the service reads and writes.
QString rootDirectory()
{
    return QFile::decodeName(qgetenv("PANELSETTINGS_ROOT"));
}

} // namespace

SystemSet::Private::Private() : service(HmiLinux::Root(rootDirectory()))
{
    // Before the toolkit's own statics go, in whatever order: its events and its log need them.
    qAddPostRoutine(endWithApplication);
}

SystemSet::Private::~Private()
{
    qRemovePostRoutine(endWithApplication);
}

void SystemSet::Private::endWithApplication()
{
    MeyerSingleton<SystemSet>::instance().d->service.endWorker();
}

SystemSet::SystemSet() : d(new Private) {}

SystemSet::~SystemSet()
{
    delete d;
}

} // namespace HMI
