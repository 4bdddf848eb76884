#include "tests/lab/refusals.h"
#include "tests/lab/wifiair.h"

using namespace Lab;

/// Somebody who does not belong to the group of the screen: nothing of the device changes, and each refusal is told.
class LabVisitor : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase();
    static void addresses();
    static void adapter();
    static void radio();
    static void scan();
    static void join();
    static void clock();
    static void buzzer();
    static void backlight();
    static void restart();
};

void LabVisitor::initTestCase()
{
    QTRY_VERIFY_WITH_TIMEOUT(isKnown(SystemSet::LAN0) && isKnown(SystemSet::WIFI), Patience);
}

void LabVisitor::addresses()
{
    const QStringList before = tell("addresses eth0");
    QVERIFY(!before.isEmpty());
    const Refusals refusals;
    panel().setIp(SystemSet::LAN0, 0x0A00024E, true);
    QCOMPARE(requestDhcp(SystemSet::LAN0, false), int(SystemSet::DHCP_FAILED));
    QVERIFY(refusals.waitFor("the settings of LAN0 stay as they are"));
    QTRY_VERIFY_WITH_TIMEOUT(panel().isDhcpOn(SystemSet::LAN0), Patience);
    QCOMPARE(tell("addresses eth0"), before);
}

void LabVisitor::adapter()
{
    const QStringList before = tell("addresses eth0");
    const Refusals refusals;
    panel().enableNIC(SystemSet::LAN0, false, true);
    QVERIFY(refusals.waitFor("the settings of LAN0 stay as they are"));
    QTRY_VERIFY_WITH_TIMEOUT(panel().isNicEnabled(SystemSet::LAN0), Patience);
    QCOMPARE(tell("addresses eth0"), before);
}

void LabVisitor::radio()
{
    const Refusals refusals;
    panel().enableNIC(SystemSet::WIFI, false, true);
    QVERIFY(refusals.waitFor("WIFI stays as it is"));
    QTRY_VERIFY_WITH_TIMEOUT(panel().isNicEnabled(SystemSet::WIFI), Patience);
    QCOMPARE(tell("radio"), QStringList{QStringLiteral("enabled")});
}

void LabVisitor::scan()
{
    // What was heard last: a list all the same.
    QVERIFY(scanned() != nullptr);
}

void LabVisitor::join()
{
    QCOMPARE(joined(Wpa2, Wpa2.password), int(SystemSet::WIFI_OFFLINE));
    QVERIFY(!panel().isWifiConnected());
    QVERIFY(tell("profiles").filter(QStringLiteral("WIFI")).isEmpty());
}

void LabVisitor::clock()
{
    const qint64 before = number("clock");
    // timedated has to be started, which may take longer here than the screen waits.
    const auto refusal = [] {
        const Refusals refusals;
        return panel().setSystemTime(1000000000) ? QString() : Refusals::told();
    };
    QTRY_VERIFY_WITH_TIMEOUT(refusal().contains(QStringLiteral("the clock stays as it is")), Patience);
    QVERIFY(number("clock") >= before);
}

void LabVisitor::buzzer()
{
    tell("heard");
    panel().beep(true);
    // What is asked for later is answered later.
    answersPing(SystemSet::LAN0);
    QCOMPARE(tell("heard"), QStringList());
}

void LabVisitor::backlight()
{
    const qint64 before = number("backlight");
    const SystemSet::Bright level = panel().bright();
    const Refusals refusals;
    panel().setBright(SystemSet::BRIGHT_MAX, false);
    QVERIFY(refusals.waitFor("may not be written"));
    QCOMPARE(number("backlight"), before);
    QCOMPARE(int(panel().bright()), int(level));
}

void LabVisitor::restart()
{
    const Refusals refusals;
    panel().reboot();
    QVERIFY(refusals.waitFor("the device does not restart"));
}

LAB_MAIN(LabVisitor)
#include "lab_visitor.moc"
