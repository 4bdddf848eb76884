#include "tests/lab/labscene.h"

using namespace Lab;

/// What the user of the screen may do to the wired adapter.
class LabWired : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase();
    static void hasALease();
    static void setsAddresses();
    static void setsNameServers();
    static void asksForALeaseAgain();
    static void switchesOffAndOn();

private:
    static QString kernel() { return tell("addresses eth0").join(QLatin1Char(' ')); }
};

void LabWired::initTestCase()
{
    QTRY_VERIFY_WITH_TIMEOUT(isKnown(SystemSet::LAN0), Patience);
}

void LabWired::hasALease()
{
    QTRY_COMPARE_WITH_TIMEOUT(quint32(panel().getIp(SystemSet::LAN0)), 0x0A00020FU, Patience);
    QVERIFY(panel().isDhcpOn(SystemSet::LAN0));
}

void LabWired::setsAddresses()
{
    panel().setIp(SystemSet::LAN0, 0x0A00024D, true);
    panel().setSubnetMask(SystemSet::LAN0, 0xFFFFFF00, true);
    panel().setGateway(SystemSet::LAN0, 0x0A000202, true);
    QCOMPARE(requestDhcp(SystemSet::LAN0, false), int(SystemSet::DHCP_OK));
    QTRY_COMPARE_WITH_TIMEOUT(kernel(), QStringLiteral("10.0.2.77/24"), Patience);
    QCOMPARE(quint32(panel().getIpFromEE(SystemSet::LAN0)), 0x0A00024DU);
    QTRY_COMPARE_WITH_TIMEOUT(quint32(panel().getGateway(SystemSet::LAN0)), 0x0A000202U, Patience);
    QVERIFY(answersPing(SystemSet::LAN0));
}

void LabWired::setsNameServers()
{
    const std::pair<HMI::IP, HMI::IP> servers{0x0A000203, 0x08080808};
    panel().setDns(SystemSet::LAN0, servers);
    QTRY_VERIFY_WITH_TIMEOUT(tell("resolver").contains(QStringLiteral("10.0.2.3")) &&
                                 tell("resolver").contains(QStringLiteral("8.8.8.8")),
                             Patience);
    QVERIFY(panel().getDns(SystemSet::LAN0) == servers);
}

void LabWired::asksForALeaseAgain()
{
    QCOMPARE(requestDhcp(SystemSet::LAN0, true), int(SystemSet::DHCP_OK));
    QTRY_COMPARE_WITH_TIMEOUT(kernel(), QStringLiteral("10.0.2.15/24"), Patience);
    QCOMPARE(quint32(panel().getIpFromEE(SystemSet::LAN0)), 0x0A00024DU);
}

void LabWired::switchesOffAndOn()
{
    panel().enableNIC(SystemSet::LAN0, false, true);
    QTRY_COMPARE_WITH_TIMEOUT(kernel(), QString(), Patience);
    QVERIFY(!panel().isNicEnabled(SystemSet::LAN0));
    panel().enableNIC(SystemSet::LAN0, true, true);
    QTRY_COMPARE_WITH_TIMEOUT(kernel(), QStringLiteral("10.0.2.15/24"), Patience);
}

LAB_MAIN(LabWired)
#include "lab_wired.moc"
