#include "panel/wifilink.h"
#include "simulator/simulator.h"
#include "tests/support/journal.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

using QSP::WifiLink;

namespace {

QByteArray bytesOf(const HMI::SSID &ssid)
{
    return ssid.data();
}

} // namespace

/// What is known of the link to a Wi-Fi network, and when the service is asked for it. No window.
class TestWifiLink : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void readsAtItsFirstUse();
    void staysAsRead();
    void readsEachValueOnce();
    void withoutALinkNoStrengthIsAsked();
    void tellsWhatIsNew_data();
    void tellsWhatIsNew();
    void namesAreBytes();
    void resetIsPassedOn();
};

void TestWifiLink::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::joinNetwork("Plant", 61);
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::clearJournal();
}

void TestWifiLink::cleanup()
{
    HmiSimulator::setGettersRecorded(false);
    endWatch();
}

void TestWifiLink::readsAtItsFirstUse()
{
    const WifiLink link;
    QCOMPARE(Journal::calls(), QStringList());
    QVERIFY(link.isConnected());
    QCOMPARE(bytesOf(link.ssid()), QByteArray("Plant"));
    QCOMPARE(link.name(), QStringLiteral("Plant"));
    QCOMPARE(link.signalStrength(), 61);
    QCOMPARE(Journal::calls().size(), 3);
}

void TestWifiLink::staysAsRead()
{
    WifiLink link;
    link.read();
    HmiSimulator::leaveNetwork();
    QVERIFY(link.isConnected());
    QCOMPARE(link.name(), QStringLiteral("Plant"));
    link.read();
    QVERIFY(!link.isConnected());
    QCOMPARE(link.name(), QString());
}

void TestWifiLink::readsEachValueOnce()
{
    WifiLink link;
    const QStringList expected{"isWifiConnected()", "currentWifiSsid()", "currentWifiSignalStrength()"};
    for (int i = 0; i < 2; ++i) {
        HmiSimulator::clearJournal();
        link.read();
        QCOMPARE(Journal::calls(), expected);
    }
}

void TestWifiLink::withoutALinkNoStrengthIsAsked()
{
    HmiSimulator::leaveNetwork();
    WifiLink link;
    link.read();
    QCOMPARE(Journal::calls(), QStringList({"isWifiConnected()", "currentWifiSsid()"}));
    QCOMPARE(link.signalStrength(), 0);
}

void TestWifiLink::tellsWhatIsNew_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("isNew");
    QTest::newRow("nothing") << QByteArray("Plant") << 61 << false;
    QTest::newRow("name") << QByteArray("Plant 2") << 61 << true;
    QTest::newRow("strength") << QByteArray("Plant") << 62 << true;
    QTest::newRow("link") << QByteArray() << 0 << true;
}

void TestWifiLink::tellsWhatIsNew()
{
    QFETCH(QByteArray, name);
    QFETCH(int, signal);
    QFETCH(bool, isNew);
    WifiLink link;
    QSignalSpy changed(&link, &WifiLink::changed);
    QSignalSpy wasRead(&link, &WifiLink::wasRead);
    link.read();
    // Nothing was known before.
    QCOMPARE(changed.size(), 1);
    QCOMPARE(wasRead.size(), 1);
    if (name.isEmpty())
        HmiSimulator::leaveNetwork();
    else
        HmiSimulator::joinNetwork(name.toStdString(), signal);
    link.read();
    QCOMPARE(changed.size(), isNew ? 2 : 1);
    QCOMPARE(wasRead.size(), 2);
}

void TestWifiLink::namesAreBytes()
{
    HmiSimulator::joinNetwork("\xD7\xB0");
    WifiLink link;
    link.read();
    QCOMPARE(bytesOf(link.ssid()), QByteArray("\xD7\xB0"));
    // Always taken as UTF-8, as opposed to a name in a list of networks.
    QCOMPARE(link.name(), QStringLiteral("\u05F0"));
    HmiSimulator::joinNetwork(std::string(32, 'W'));
    link.read();
    QCOMPARE(link.name(), QString(32, QLatin1Char('W')));
    QCOMPARE(link.ssid().back(), '\0');
}

void TestWifiLink::resetIsPassedOn()
{
    WifiLink link;
    QSignalSpy wasReset(&link, &WifiLink::wasReset);
    link.reset();
    QCOMPARE(wasReset.size(), 1);
    QCOMPARE(Journal::calls(), QStringList());
}

PANEL_TEST_MAIN(TestWifiLink)

#include "test_wifilink.moc"
