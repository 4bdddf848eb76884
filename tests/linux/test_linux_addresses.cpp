#include "tests/support/paneltest.h"

#include "linux/addressdraft.h"
#include "linux/profile.h"

#include <QtDBus/QDBusArgument>

using namespace HmiLinux;

namespace {

HMI::IP ip(const char *text)
{
    return addressOf(QString::fromLatin1(text)).value_or(HMI::IP());
}

QString latin(const char *name)
{
    return QString::fromLatin1(name);
}

QTestData &addressRow(const char *name, const char *address, const char *mask, const char *gateway)
{
    return QTest::newRow(name) << latin(address) << latin(mask) << latin(gateway);
}

} // namespace

class TestLinuxAddresses : public PanelTest
{
    Q_OBJECT

private slots:
    void addressesAreRead_data();
    void addressesAreRead();
    void masksAndPrefixes();
    void whatCannotWorkTogether_data();
    void whatCannotWorkTogether();
    void draftWaitsForWhatFits();
    void draftLeavesOutWhatIsImpossible_data();
    void draftLeavesOutWhatIsImpossible();
    void serversAreInOrder();
    void profileRoundTrip_data();
    void profileRoundTrip();
    void leaseAddsNoStaticAddress();
    void whatOthersSetStays();
    void profilesAreTheSameOnEachStart();
};

void TestLinuxAddresses::addressesAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("good");
    QTest::addColumn<quint32>("value");
    QTest::newRow("usual") << "192.168.1.10" << true << 0xC0A8010AU;
    QTest::newRow("zero") << "0.0.0.0" << true << 0U;
    QTest::newRow("all") << "255.255.255.255" << true << 0xFFFFFFFFU;
    QTest::newRow("short") << "1.2.3" << false << 0U;
    QTest::newRow("long") << "1.2.3.4.5" << false << 0U;
    QTest::newRow("large") << "1.2.3.256" << false << 0U;
    QTest::newRow("empty part") << "1..3.4" << false << 0U;
    QTest::newRow("version 6") << "fe80::1" << false << 0U;
}

void TestLinuxAddresses::addressesAreRead()
{
    QFETCH(const QString, text);
    QFETCH(const bool, good);
    QFETCH(const quint32, value);
    const std::optional<HMI::IP> address = addressOf(text);
    QCOMPARE(address.has_value(), good);
    if (!address)
        return;
    QCOMPARE(quint32(*address), value);
    QCOMPARE(dotted(*address), text);
}

void TestLinuxAddresses::masksAndPrefixes()
{
    for (int prefix = 0; prefix <= 32; ++prefix)
        QCOMPARE(prefixOf(maskOf(prefix)).value_or(-1), prefix);
    QCOMPARE(quint32(maskOf(24)), 0xFFFFFF00U);
    QVERIFY(!prefixOf(0xFF00FF00U));
}

void TestLinuxAddresses::whatCannotWorkTogether_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("gateway");
    QTest::addColumn<QString>("conflict");
    const auto row = [](const char *name, const char *address, const char *mask, const char *gateway,
                        const char *conflict) {
        addressRow(name, address, mask, gateway) << latin(conflict);
    };
    row("nothing", "0.0.0.0", "0.0.0.0", "0.0.0.0", "");
    row("usual", "192.168.1.10", "255.255.255.0", "192.168.1.1", "");
    row("no gateway", "192.168.1.10", "255.255.255.0", "0.0.0.0", "");
    row("two in a network", "10.0.0.0", "255.255.255.254", "10.0.0.1", "");
    row("alone", "10.0.0.7", "255.255.255.255", "0.0.0.0", "");
    row("holes", "192.168.1.10", "255.0.255.0", "192.168.1.1", "the mask 255.0.255.0 has holes");
    row("no mask", "192.168.1.10", "0.0.0.0", "0.0.0.0", "there is no mask");
    row("no address", "0.0.0.0", "255.255.255.0", "0.0.0.0", "there is no address");
    row("loop", "127.0.0.1", "255.0.0.0", "0.0.0.0", "127.0.0.1 is no address of an adapter");
    row("multicast", "224.0.0.1", "255.0.0.0", "0.0.0.0", "224.0.0.1 is no address of an adapter");
    row("network", "192.168.1.0", "255.255.255.0", "0.0.0.0", "192.168.1.0 is the address of its network");
    row("broadcast", "192.168.1.255", "255.255.255.0", "0.0.0.0",
        "192.168.1.255 is the broadcast address of its network");
    row("foreign gateway", "192.168.1.10", "255.255.255.0", "192.168.2.1",
        "the gateway 192.168.2.1 is not in the network of 192.168.1.10");
    row("itself", "192.168.1.10", "255.255.255.0", "192.168.1.10",
        "the gateway 192.168.1.10 is the adapter itself");
    row("broadcast gateway", "192.168.1.10", "255.255.255.0", "192.168.1.255",
        "the gateway 192.168.1.255 is no single address of its network");
}

void TestLinuxAddresses::whatCannotWorkTogether()
{
    QFETCH(const QString, address);
    QFETCH(const QString, mask);
    QFETCH(const QString, gateway);
    QFETCH(const QString, conflict);
    QCOMPARE(conflictOf({*addressOf(address), *addressOf(mask), *addressOf(gateway)}), conflict);
}

void TestLinuxAddresses::draftWaitsForWhatFits()
{
    const Addresses stored{ip("192.168.1.10"), maskOf(24), ip("192.168.1.1")};
    AddressDraft draft;
    Wish first;
    first.ip = ip("10.0.0.5");
    QVERIFY(!conflictOf(draft.over(stored, first)).isEmpty());
    draft.keep(first, draft.over(stored, first));
    Wish second;
    second.gateway = ip("10.0.0.1");
    QVERIFY(draft.over(stored, second) == (Addresses{ip("10.0.0.5"), maskOf(24), ip("10.0.0.1")}));
    draft.forget();
    QVERIFY(draft.over(stored, second) == (Addresses{ip("192.168.1.10"), maskOf(24), ip("10.0.0.1")}));
}

void TestLinuxAddresses::draftLeavesOutWhatIsImpossible_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("gateway");
    addressRow("broadcast", "192.168.1.255", "", "");
    addressRow("network", "192.168.1.0", "", "");
    addressRow("loopback", "127.0.0.1", "", "");
    addressRow("mask with holes", "", "255.0.255.0", "");
    addressRow("no mask", "", "0.0.0.0", "");
    addressRow("broadcast as gateway", "", "", "192.168.1.255");
}

void TestLinuxAddresses::draftLeavesOutWhatIsImpossible()
{
    QFETCH(const QString, address);
    QFETCH(const QString, mask);
    QFETCH(const QString, gateway);
    const Addresses stored{ip("192.168.1.10"), maskOf(24), ip("192.168.1.1")};
    Wish wish;
    wish.ip = addressOf(address);
    wish.mask = addressOf(mask);
    wish.gateway = addressOf(gateway);
    AddressDraft draft;
    const Addresses whole = draft.over(stored, wish);
    QVERIFY(!conflictOf(whole).isEmpty());
    draft.keep(wish, whole);
    QVERIFY(draft.over(stored, {}) == stored);
}

void TestLinuxAddresses::serversAreInOrder()
{
    const HMI::IP one = ip("9.9.9.9");
    const HMI::IP other = ip("8.8.4.4");
    QVERIFY(inOrder({one, other}) == (Dns{one, other}));
    QVERIFY(inOrder({0, other}) == (Dns{other, 0}));
    QVERIFY(inOrder({one, one}) == (Dns{one, 0}));
    QVERIFY(inOrder({0, 0}) == Dns());
}

void TestLinuxAddresses::profileRoundTrip_data()
{
    QTest::addColumn<bool>("dhcp");
    QTest::addColumn<bool>("hasAddress");
    QTest::addColumn<bool>("hasDns");
    for (const bool dhcp : {false, true}) {
        for (const bool hasAddress : {false, true}) {
            for (const bool hasDns : {false, true})
                QTest::addRow("dhcp %d address %d dns %d", dhcp, hasAddress, hasDns)
                    << dhcp << hasAddress << hasDns;
        }
    }
}

void TestLinuxAddresses::profileRoundTrip()
{
    QFETCH(const bool, dhcp);
    QFETCH(const bool, hasAddress);
    QFETCH(const bool, hasDns);
    ProfileValues values;
    values.enabled = !dhcp;
    values.dhcp = dhcp;
    values.isDefault = hasDns;
    if (hasAddress)
        values.stored = {ip("192.168.1.10"), maskOf(23), ip("192.168.0.1")};
    if (hasDns)
        values.dns = {ip("9.9.9.9"), ip("192.168.0.2")};
    const Sections fresh = newWiredSettings(QStringLiteral("LAN0"), QStringLiteral("eth0"));
    const Profile read = readProfile(QStringLiteral("/1"), withValues(fresh, values));
    QVERIFY(read.values == values);
    QCOMPARE(read.uuid, profileUuid(QStringLiteral("LAN0")));
    QCOMPARE(read.path, QStringLiteral("/1"));
    // Written over what says the opposite.
    ProfileValues other;
    other.dhcp = !dhcp;
    other.stored = {ip("10.9.8.7"), maskOf(8), ip("10.0.0.1")};
    other.dns = {ip("1.1.1.1"), HMI::IP()};
    QVERIFY(readProfile({}, withValues(withValues(fresh, other), values)).values == values);
}

void TestLinuxAddresses::leaseAddsNoStaticAddress()
{
    ProfileValues values;
    values.stored = {ip("192.168.1.10"), maskOf(24), ip("192.168.1.1")};
    const QVariantMap ipv4 = withValues({}, values).value(latin("ipv4"));
    QCOMPARE(ipv4.value(latin("method")), QVariant(latin("auto")));
    QVERIFY(recordsOf(ipv4.value(latin("address-data"))).isEmpty());
    QVERIFY(!ipv4.contains(latin("gateway")));
    // The daemon refuses servers where there is no address.
    values.dhcp = false;
    values.stored = {};
    values.dns = {ip("9.9.9.9"), HMI::IP()};
    const QVariantMap bare = withValues({}, values).value(latin("ipv4"));
    QCOMPARE(bare.value(latin("method")), QVariant(latin("disabled")));
    QVERIFY(qdbus_cast<QList<uint>>(bare.value(latin("dns"))).isEmpty());
}

void TestLinuxAddresses::whatOthersSetStays()
{
    Sections settings = newWiredSettings(QStringLiteral("LAN0"), QStringLiteral("eth0"));
    settings[latin("802-3-ethernet")].insert(latin("mtu"), 1400U);
    settings[latin("ipv4")].insert(latin("addresses"), QVariantList{1});
    settings[latin("user")].insert(
        latin("data"), QVariant::fromValue(QMap<QString, QString>{{latin("plant.line"), latin("4")}}));
    const Sections written = withValues(settings, ProfileValues());
    QCOMPARE(written.value(latin("802-3-ethernet")).value(latin("mtu")), QVariant(1400U));
    const auto data = written.value(latin("user")).value(latin("data")).value<QMap<QString, QString>>();
    QCOMPARE(data.value(latin("plant.line")), latin("4"));
    QVERIFY(!written.value(latin("ipv4")).contains(latin("addresses"))); // would win over the newer form
}

void TestLinuxAddresses::profilesAreTheSameOnEachStart()
{
    QCOMPARE(profileUuid(latin("LAN0")), profileUuid(latin("LAN0")));
    QVERIFY(profileUuid(latin("LAN0")) != profileUuid(latin("LAN1")));
    QVERIFY(!profileUuid(latin("LAN0")).contains(QLatin1Char('{')));
}

PANEL_TEST_MAIN(TestLinuxAddresses)
#include "test_linux_addresses.moc"
