#include "simulatortest.h"

#include <future>

/// The journal tells all that was called, and no password.
class TestSimulatorJournal : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        HmiSimulator::setDelays(1);
        beginWatch();
    }

    void everyActionWithItsArguments();
    void unknownValuesAreNumbers();
    void gettersOnDemand();
    void passwordsAreMasked();
    void namesAreReadable_data();
    void namesAreReadable();
    void reportsStandApart();
    void threadsAreTold();
    void sequenceGrows();
    void sizeIsBounded();
};

void TestSimulatorJournal::everyActionWithItsArguments()
{
    service().setIp(SystemSet::LAN0, 0xC0A8010A, true);
    service().setSubnetMask(SystemSet::LAN1, 0xFFFFFF00, false);
    service().setGateway(SystemSet::WIFI, 0x0A000001, true);
    service().setDHCP(SystemSet::LAN0, true, {}, true);
    service().enableNIC(SystemSet::MOBILE_4G, false, true);
    service().setDefaultNIC(SystemSet::LAN1, false);
    service().pingTest(SystemSet::VPN, {});
    service().scanWifi({});
    service().resetWifi({});
    service().connectWifi(ssid("Hall"), {}, {});
    service().setVPNServer(SystemSet::EUROPE);
    service().resetVPNIp(SystemSet::ASIA);
    service().setDns(SystemSet::LAN0, {0x01020304, 0});
    service().setSystemTime(1700000000);
    service().syncHwclock();
    service().setBright(SystemSet::BRIGHT_MAX, false);
    service().setBright(SystemSet::BRIGHT_MIN, true);
    service().setBuzzerOn(false);
    service().beep(true);
    service().setLanguage(SystemSet::CHINESE);
    service().reboot();
    QCOMPARE(lines(HmiSimulator::calls()), (QStringList{"setIp(LAN0, 192.168.1.10, persist)",
                                                        "setSubnetMask(LAN1, 255.255.255.0, temporary)",
                                                        "setGateway(WIFI, 10.0.0.1, persist)",
                                                        "setDHCP(LAN0, true, persist)",
                                                        "enableNIC(MOBILE_4G, false, persist)",
                                                        "setDefaultNIC(LAN1, no restart)",
                                                        "pingTest(VPN)",
                                                        "scanWifi()",
                                                        "resetWifi()",
                                                        "connectWifi(\"Hall\", \"\")",
                                                        "setVPNServer(EUROPE)",
                                                        "resetVPNIp(ASIA)",
                                                        "setDns(LAN0, 1.2.3.4, 0.0.0.0)",
                                                        "setSystemTime(1700000000)",
                                                        "syncHwclock()",
                                                        "setBright(32, no save)",
                                                        "setBright(1, save)",
                                                        "setBuzzerOn(false)",
                                                        "beep(true)",
                                                        "setLanguage(CHINESE)",
                                                        "reboot()"}));
    QCOMPARE(lines(HmiSimulator::calls("setBright")),
             (QStringList{"setBright(32, no save)", "setBright(1, save)"}));
    QVERIFY(HmiSimulator::waitIdle());
    QVERIFY(HmiSimulator::reports().empty()); // nobody was there to be told
    HmiSimulator::clearJournal();
    QVERIFY(HmiSimulator::calls().empty());
}

void TestSimulatorJournal::unknownValuesAreNumbers()
{
    service().enableNIC(static_cast<SystemSet::NIC>(8), true, true);
    service().setLanguage(static_cast<SystemSet::Language>(7));
    service().setVPNServer(static_cast<SystemSet::VPNServer>(-1));
    QCOMPARE(lines(HmiSimulator::calls()),
             (QStringList{"enableNIC(NIC(8), true, persist)", "setLanguage(Language(7))",
                          "setVPNServer(VPNServer(-1))"}));
}

void TestSimulatorJournal::gettersOnDemand()
{
    service().bright();
    service().getIp(SystemSet::LAN0);
    QVERIFY(HmiSimulator::calls().empty());
    HmiSimulator::setGettersRecorded(true);
    service().bright();
    service().getIp(SystemSet::LAN0);
    service().getVPNServerState(SystemSet::EUROPE);
    QCOMPARE(lines(HmiSimulator::calls()),
             (QStringList{"bright()", "getIp(LAN0)", "getVPNServerState(EUROPE)"}));
    QVERIFY(HmiSimulator::journal().front().kind == HmiSimulator::Kind::Getter);
}

void TestSimulatorJournal::passwordsAreMasked()
{
    HmiSimulator::setGettersRecorded(true);
    const std::string password = "torque55Nm";
    join("Maintenance", password);
    join("Maintenance", password + "x");
    scan();
    QVERIFY(HmiSimulator::waitIdle());
    QCOMPARE(lines(HmiSimulator::calls("connectWifi")),
             (QStringList{"connectWifi(\"Maintenance\", ****)", "connectWifi(\"Maintenance\", ****)"}));
    for (const HmiSimulator::Entry &entry : HmiSimulator::journal())
        QVERIFY2(entry.text().find("torque") == std::string::npos, entry.text().c_str());
}

void TestSimulatorJournal::namesAreReadable_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << QByteArray("Hall 4") << "Hall 4";
    QTest::newRow("utf-8") << QByteArray("装配 é 🏭") << "装配 é 🏭";
    QTest::newRow("gb2312") << QByteArray("\xC5\xE4\xCF") << R"(\xC5\xE4\xCF)";
    QTest::newRow("overlong") << QByteArray("\xC0\xAF\xE0\x80\xAF") << R"(\xC0\xAF\xE0\x80\xAF)";
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << R"(\xED\xA0\x80)";
    QTest::newRow("beyond") << QByteArray("\xF4\x90\x80\x80") << R"(\xF4\x90\x80\x80)";
    QTest::newRow("cut short") << QByteArray("a\xE8\xA3") << "a\\xE8\\xA3";
    QTest::newRow("control") << QByteArray("a\tb\x7F") << "a\\x09b\\x7F";
    QTest::newRow("quotes") << QByteArray(R"("a\b")") << R"(\"a\\b\")";
    QTest::newRow("33 bytes") << QByteArray(33, 'X') << QString(33, 'X');
}

void TestSimulatorJournal::namesAreReadable()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QString, shown);
    service().connectWifi(ssid(name.toStdString()), {}, {});
    QCOMPARE(lines(HmiSimulator::calls()), QStringList{"connectWifi(\"" + shown + "\", \"\")"});
}

void TestSimulatorJournal::reportsStandApart()
{
    HmiSimulator::setManual(true);
    askForDhcp(SystemSet::LAN0);
    ping(SystemSet::LAN0);
    scan();
    join("Maintenance", "wrong");
    HmiSimulator::fireAll();
    QCOMPARE(lines(HmiSimulator::reports()),
             (QStringList{"setDHCP(LAN0, DHCP_OK)", "pingTest(LAN0, true)", "scanWifi(9 networks)",
                          "connectWifi(\"Maintenance\", WIFI_CONNECTING)",
                          "connectWifi(\"Maintenance\", WIFI_WRONG_PASSWORD)"}));
    QCOMPARE(HmiSimulator::calls().size(), std::size_t(4));
}

void TestSimulatorJournal::threadsAreTold()
{
    service().setBuzzerOn(true);
    std::async(std::launch::async, [] { service().setBuzzerOn(false); }).wait();
    ping(SystemSet::LAN0);
    QVERIFY(HmiSimulator::waitIdle());
    const std::vector<HmiSimulator::Entry> entries = HmiSimulator::journal();
    QCOMPARE(entries.size(), std::size_t(4));
    QVERIFY(entries[0].mainThread);
    QVERIFY(!entries[1].mainThread);
    QVERIFY(entries[1].thread != entries[0].thread);
    QVERIFY(entries[2].mainThread);
    QVERIFY(entries[3].kind == HmiSimulator::Kind::Report);
    QVERIFY(!entries[3].mainThread);
}

void TestSimulatorJournal::sequenceGrows()
{
    service().beep(true);
    const std::uint64_t first = HmiSimulator::journal().front().sequence;
    HmiSimulator::clearJournal();
    service().beep(true);
    service().beep(true);
    const std::vector<HmiSimulator::Entry> entries = HmiSimulator::journal();
    QCOMPARE(entries[0].sequence, first + 1);
    QCOMPARE(entries[1].sequence, first + 2);
}

void TestSimulatorJournal::sizeIsBounded()
{
    for (int i = 0; i < 10003; ++i)
        service().setBright(static_cast<SystemSet::Bright>(i), false);
    const std::vector<HmiSimulator::Entry> entries = HmiSimulator::journal();
    QCOMPARE(entries.size(), std::size_t(10000));
    QCOMPARE(HmiSimulator::journalDropped(), std::uint64_t(3));
    QCOMPARE(entries.front().text(), std::string("setBright(3, no save)"));
    HmiSimulator::clearJournal();
    QCOMPARE(HmiSimulator::journalDropped(), std::uint64_t(0));
}

PANEL_TEST_MAIN(TestSimulatorJournal)
#include "test_simulator_journal.moc"
