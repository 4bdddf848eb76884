#include "linux/systemset_p.h"

#include "linux/log.h"
#include "meyersingleton.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

namespace HMI {

namespace {

// Where a test or a container keeps the files that the service reads and writes.
HmiLinux::Root root()
{
    using HmiLinux::Root;
    const bool isReadOnly = !qEnvironmentVariableIsEmpty("PANELSETTINGS_READ_ONLY");
    return Root(QFile::decodeName(qgetenv("PANELSETTINGS_ROOT")),
                isReadOnly ? Root::Access::ReadOnly : Root::Access::All);
}

} // namespace

SystemSet::Private::Private() : service(root())
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

bool SystemSet::Private::onlyTells(const QString &what) const
{
    if (!service.isReadOnly())
        return false;
    qCInfo(HmiLinux::readOnlyLog, "would %s", qPrintable(what));
    return true;
}

SystemSet::SystemSet() : d(new Private) {}

SystemSet::~SystemSet()
{
    delete d;
}

} // namespace HMI
