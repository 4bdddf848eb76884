#include "contracts.h"

#include <QtCore/QCoreApplication>

/// The contract against the libhmisystemset.so that the dynamic linker finds.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    // A service may answer neutral values until it has looked at its panel, and nothing says when it has: what the
    // suite takes for the state that it puts back would be none.
    Contract::service().getAllNIC();
    QTest::qWait(500);
    ContractGetters getters;
    ContractSettings settings;
    ContractRequests requests;
    int failed = 0;
    for (QObject *suite : std::initializer_list<QObject *>{&getters, &settings, &requests})
        failed += QTest::qExec(suite, argc, argv);
    return failed == 0 ? 0 : 1;
}
