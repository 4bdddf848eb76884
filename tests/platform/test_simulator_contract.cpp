#include "simulatortest.h"

#include "contracts.h"

/// The simulator keeps the contract whatever panel it plays, also with the faults that the contract allows.
class TestSimulatorContract : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        beginWatch();
    }
    void keepsContract_data();
    void keepsContract();
};

void TestSimulatorContract::keepsContract_data()
{
    QTest::addColumn<QString>("scenario");
    for (const char *name : {"default.json", "quick.json", "lan0-only.json", "lan1-4g.json", "4g-only.json",
                             "vpn-only.json", "no-adapter.json", "unplugged.json", "wifi-crowd.json",
                             "wifi-empty.json", "faults-synchronous.json"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void TestSimulatorContract::keepsContract()
{
    QFETCH(const QString, scenario);
    std::string error;
    QVERIFY2(HmiSimulator::loadScenario(scenarioPath(scenario).toStdString(), &error), error.c_str());
    HmiSimulator::setDelays(5);

    ContractGetters getters;
    ContractSettings settings;
    ContractRequests requests;
    for (QObject *suite : std::initializer_list<QObject *>{&getters, &settings, &requests}) {
        // A program of its own would start the suite anew; the methods are the same ones.
        const QMetaObject *type = suite->metaObject();
        for (int i = type->methodOffset(); i < type->methodCount(); ++i) {
            const QMetaMethod method = type->method(i);
            if (method.name().endsWith("_data") || method.name() == "dhcpReports")
                continue;
            QVERIFY(method.invoke(suite, Qt::DirectConnection));
            QVERIFY2(!QTest::currentTestFailed(), method.name().constData());
        }
    }
    QVERIFY(HmiSimulator::waitIdle());
}

PANEL_TEST_MAIN(TestSimulatorContract)
#include "test_simulator_contract.moc"
