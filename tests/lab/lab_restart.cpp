#include "tests/lab/labscene.h"

/// The last thing that is asked of the device: the end of it is the answer.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (!QTest::qWaitFor([] { return Lab::isKnown(Lab::SystemSet::LAN0); }, Lab::Patience))
        return 1;
    Lab::panel().reboot();
    QTest::qWait(Lab::Patience);
    return 1;
}
