// A platform sees both contracts and the version they belong to.

#include <hmi/systemset.h>
#include <meyersingleton.h>
#include <panelsettings/version.h>
#include <qvkb/qvkbpluginloader.h>

static_assert(PANELSETTINGS_VERSION == PANELSETTINGS_VERSION_MAJOR * 0x10000 +
                                           PANELSETTINGS_VERSION_MINOR * 0x100 + PANELSETTINGS_VERSION_PATCH);

HMI_EXPORT int adaptersOf(const HMI::SystemSet &service)
{
    return service.getAllNIC();
}

QVKB_EXPORT bool isShown(QVkbInterface *keyboard)
{
    return keyboard && keyboard->isVisible();
}
