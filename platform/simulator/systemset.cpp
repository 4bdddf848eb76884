#include "hmi/systemset.h"

#include "simulator/core.h"

namespace HMI {

/// The panel is shared with the control interface; the service holds only the
/// right to report: once it is gone, no callback comes.
struct SystemSet::Private {
    HmiSimulator::Core &core = HmiSimulator::Core::instance();
};

SystemSet::SystemSet() : d(new Private) {}

SystemSet::~SystemSet()
{
    d->core.thread().stop();
    delete d;
}

} // namespace HMI
