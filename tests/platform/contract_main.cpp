#include "contracts.h"

#include <QtCore/QCoreApplication>

/// The contract against the libhmisystemset.so that the dynamic linker finds.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    ContractGetters getters;
    ContractSettings settings;
    ContractRequests requests;
    int failed = 0;
    for (QObject *suite : std::initializer_list<QObject *>{&getters, &settings, &requests})
        failed += QTest::qExec(suite, argc, argv);
    return failed == 0 ? 0 : 1;
}
