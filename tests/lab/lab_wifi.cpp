#include "tests/lab/wifiair.h"

using namespace Lab;

/// Networks without wires, on radios that the kernel simulates, with access points and a supplicant that know nothing of it.
class LabWifi : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase();
    static void hearsBoth();
    static void wrongPasswordForWpa2();
    static void shortPasswordForWpa2();
    static void joinsWpa2();
    static void keepsThePassword();
    static void accessPointVanishes();
    static void absentNetwork();
    static void joinsAgainWithTheKeptPassword();
    static void wrongPasswordForWpa3();
    static void joinsWpa3();
    static void vanishesInMidJoin();
    static void radioOffAndOn();
    static void forgetsAll();

private:
    static QStringList profiles() { return tell("profiles").filter(QStringLiteral("WIFI")); }
};

void LabWifi::initTestCase()
{
    QTRY_VERIFY_WITH_TIMEOUT(isKnown(SystemSet::WIFI), Patience);
    QCOMPARE(panel().getAllNIC(), int(SystemSet::LAN0 | SystemSet::WIFI));
}

void LabWifi::hearsBoth()
{
    for (const Network &network : {Wpa2, Wpa3}) {
        const NetworkList list = scannedWith(network);
        const SystemSet::SsidInfo *record = find(list, network);
        QVERIFY(record != nullptr);
        QCOMPARE(int(record->needsPassword), 1);
        QCOMPARE(record->password, std::string());
        QVERIFY(record->signal > 0 && record->signal <= 100);
    }
}

void LabWifi::wrongPasswordForWpa2()
{
    QCOMPARE(joined(Wpa2, "not the old way"), int(SystemSet::WIFI_WRONG_PASSWORD));
    QTRY_VERIFY_WITH_TIMEOUT(profiles().isEmpty(), Patience);
    QVERIFY(!panel().isWifiConnected());
}

void LabWifi::shortPasswordForWpa2()
{
    QCOMPARE(joined(Wpa2, "seven c"), int(SystemSet::WIFI_WRONG_PASSWORD));
    QTRY_VERIFY_WITH_TIMEOUT(profiles().isEmpty(), Patience);
}

void LabWifi::joinsWpa2()
{
    QCOMPARE(joined(Wpa2, Wpa2.password), int(SystemSet::WIFI_CONNECTED));
    QVERIFY(isIn(Wpa2));
    QVERIFY(panel().currentWifiSignalStrength() > 0);
    QVERIFY(hasAddressOf(0x0A3E0000));
    QCOMPARE(quint32(panel().getGateway(SystemSet::WIFI)), 0x0A3E0001U);
    QVERIFY(answersPing(SystemSet::WIFI));
    QCOMPARE(profiles().size(), 1);
}

void LabWifi::keepsThePassword()
{
    const NetworkList list = scannedWith(Wpa2);
    const SystemSet::SsidInfo *record = find(list, Wpa2);
    QVERIFY(record != nullptr);
    QCOMPARE(record->password, std::string(Wpa2.password));
    QCOMPARE(int(record->needsPassword), 0);
}

void LabWifi::accessPointVanishes()
{
    QVERIFY(isIn(Wpa2));
    tell("vanish wpa2");
    QTRY_VERIFY_WITH_TIMEOUT(!panel().isWifiConnected(), Patience);
    QCOMPARE(panel().currentWifiSsid(), HMI::SSID{});
    QCOMPARE(panel().currentWifiSignalStrength(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(quint32(panel().getIp(SystemSet::WIFI)), 0U, Patience);
    QVERIFY(!answersPing(SystemSet::WIFI));
    // It is known all the same.
    QCOMPARE(profiles().size(), 1);
}

void LabWifi::absentNetwork()
{
    QCOMPARE(joined(Wpa2, ""), int(SystemSet::WIFI_TIMEOUT));
    QCOMPARE(profiles().size(), 1);
}

void LabWifi::joinsAgainWithTheKeptPassword()
{
    tell("appear wpa2");
    QVERIFY(scannedWith(Wpa2) != nullptr);
    QCOMPARE(joined(Wpa2, ""), int(SystemSet::WIFI_CONNECTED));
    QVERIFY(isIn(Wpa2));
    QCOMPARE(profiles().size(), 1);
}

void LabWifi::wrongPasswordForWpa3()
{
    QVERIFY(scannedWith(Wpa3) != nullptr);
    QCOMPARE(joined(Wpa3, "not the new way"), int(SystemSet::WIFI_WRONG_PASSWORD));
    QTRY_COMPARE_WITH_TIMEOUT(profiles().size(), 1, Patience);
}

void LabWifi::joinsWpa3()
{
    QVERIFY(scannedWith(Wpa3) != nullptr);
    QCOMPARE(joined(Wpa3, Wpa3.password), int(SystemSet::WIFI_CONNECTED));
    QVERIFY(isIn(Wpa3));
    QVERIFY(hasAddressOf(0x0A3F0000));
    QVERIFY(answersPing(SystemSet::WIFI));
    QCOMPARE(profiles().size(), 2);
}

void LabWifi::vanishesInMidJoin()
{
    const auto reports = std::make_shared<Reports<int>>();
    panel().connectWifi(ssidOf(Wpa2.name), "",
                        [reports](SystemSet::StateWifi state) { reports->add(state); });
    tell("vanish wpa2");
    QVERIFY(reports->waitFor(2));
    QCOMPARE(reports->at(1), int(SystemSet::WIFI_TIMEOUT));
    tell("appear wpa2");
}

void LabWifi::radioOffAndOn()
{
    panel().enableNIC(SystemSet::WIFI, false, true);
    QTRY_COMPARE_WITH_TIMEOUT(tell("radio"), QStringList{QStringLiteral("disabled")}, Patience);
    QVERIFY(!panel().isNicEnabled(SystemSet::WIFI));
    const NetworkList none = scanned();
    QVERIFY(!none || none->empty());
    panel().enableNIC(SystemSet::WIFI, true, true);
    QTRY_COMPARE_WITH_TIMEOUT(tell("radio"), QStringList{QStringLiteral("enabled")}, Patience);
    // To the kernel the access points are radios of this device, and were off too.
    for (const char *act : {"vanish wpa2", "vanish wpa3", "appear wpa2", "appear wpa3"})
        tell(act);
    QVERIFY(scannedWith(Wpa3) != nullptr);
}

void LabWifi::forgetsAll()
{
    QCOMPARE(joined(Wpa3, ""), int(SystemSet::WIFI_CONNECTED));
    const NetworkList fresh =
        listOf([](const SystemSet::WifiListCallback &done) { panel().resetWifi(done); });
    QVERIFY(fresh != nullptr);
    for (const SystemSet::SsidInfo &record : *fresh) {
        QCOMPARE(record.password, std::string());
        QCOMPARE(int(record.needsPassword), 1);
    }
    QTRY_VERIFY_WITH_TIMEOUT(!panel().isWifiConnected(), Patience);
    QTRY_VERIFY_WITH_TIMEOUT(profiles().isEmpty(), Patience);
}

LAB_MAIN(LabWifi)
#include "lab_wifi.moc"
