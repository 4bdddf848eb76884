#include "conformance/checks/endwatch.h"
#include "conformance/checks/sequence.h"

#include <QtCore/QCoreApplication>

/// See MakeServiceChecks.
extern "C" HMI_EXPORT void panelConformanceServiceChecks(const Conformance::Order &order,
                                                         Conformance::Witness &witness)
{
    // As in the screen's host: an application, whose event loop a library may use.
    int argumentCount = 1;
    char name[] = "panelsettings-conformance";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(argumentCount, arguments);

    Conformance::EndWatch::arm(witness);
    Conformance::Sequence(order, witness).run();
}
