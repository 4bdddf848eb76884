#include "tests/linux/networkmanager/sandboxscene.h"
#include "tests/linux/text.h"

#include "linux/modemnames.h"
#include "linux/modemprofile.h"
#include "linux/nmnames.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>

using namespace HmiLinux;
using HMI::SystemSet;

/// What a real ModemManager tells of a modem that does what it is told.
class TestModem : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void profileIsTaken_data();
    void profileIsTaken();
    void registered();
    void signalFollows();
    void networkLostAndBack();
    void missingCard();
    void cardThatCannotBeUsed_data();
    void cardThatCannotBeUsed();
    void lockedCard();
    void daemonKilledAndStarted();
    void frozenDaemonHoldsNobodyUp();

private:
    ModemState modem() const { return m_scene->service->snapshot()->modem; }
    bool waitForState(int state) const
    {
        return QTest::qWaitFor([this, state] { return modem().state == state; }, 60000);
    }
    bool waitForSignal(int percent) const
    {
        return QTest::qWaitFor([this, percent] { return modem().signal == percent; }, 60000);
    }
    /// As the network's daemon does, which here has no modems.
    static bool enable() { return ask({text("--modem"), text("any"), text("--enable")}); }
    static bool ask(const QStringList &arguments)
    {
        QProcess process;
        process.start(text("mmcli"), arguments);
        return process.waitForFinished(60000) && process.exitCode() == 0;
    }
    void restart(const char *card)
    {
        m_scene->tell(QByteArray("modem card ").append(card).constData());
        m_scene->tell("mm restart");
    }

    std::unique_ptr<SandboxScene> m_scene;
};

void TestModem::init()
{
    beginWatch();
    QVERIFY(Sandbox::isAround());
    m_scene = std::make_unique<SandboxScene>();
    m_scene->panel.put(text("/etc/panelsettings/linux.conf"),
                       "[adapters]\nLAN0 = lan0\nLAN1 = lan1\nWIFI = none\nMOBILE_4G = abstract:port0\n");
    m_scene->tell("modem registration home");
    m_scene->tell("modem signal 20");
    m_scene->startService();
    QVERIFY(m_scene->service->place(SystemSet::MOBILE_4G));
    QTRY_VERIFY_WITH_TIMEOUT(modem().state != 0, 60000);
    QVERIFY(enable());
    QVERIFY(waitForState(Mm::Registered));
}

void TestModem::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestModem::profileIsTaken_data()
{
    QTest::addColumn<QString>("apn");
    QTest::newRow("of the operator") << text("auto");
    QTest::newRow("by its name") << text("internet.plant");
}

void TestModem::profileIsTaken()
{
    QFETCH(const QString, apn);
    // The network's daemon has no modem here, but it judges a profile all the same.
    ProfileValues values;
    values.isDefault = true;
    values.dns = Dns{SandboxScene::ip("9.9.9.9"), HMI::IP()};
    QDBusMessage question = Nm::call(Nm::settingsPath(), Nm::settings(), "AddConnection2");
    question << QVariant::fromValue(withValues(newModemSettings(text("MOBILE_4G"), apn), values))
             << uint(Nm::InMemory) << QVariantMap();
    const QDBusConnection bus = QDBusConnection::systemBus();
    const QDBusMessage added = bus.call(question);
    QVERIFY2(added.type() == QDBusMessage::ReplyMessage, qPrintable(added.errorMessage()));
    const QString path = added.arguments().value(0).value<QDBusObjectPath>().path();
    const QDBusMessage read = bus.call(Nm::call(path, Nm::profile(), "GetSettings"));
    const auto settings = qdbus_cast<Sections>(read.arguments().value(0));
    const Profile profile = readProfile(path, settings);
    QCOMPARE(profile.type, text("gsm"));
    QVERIFY(profile.values == values);
    const QVariantMap gsm = settings.value(text("gsm"));
    QCOMPARE(gsm.value(text("auto-config")).toBool(), apn == text("auto"));
    QCOMPARE(gsm.value(text("apn"), text("auto")).toString(), apn);
    QCOMPARE(bus.call(Nm::call(path, Nm::profile(), "Delete")).type(), QDBusMessage::ReplyMessage);
}

void TestModem::registered()
{
    QVERIFY(waitForSignal(60));
    QCOMPARE(linkState(modem(), 0, true), 0); // a network, and no connection over it
}

void TestModem::signalFollows()
{
    m_scene->tell("modem signal 31");
    QVERIFY(waitForSignal(100));
    m_scene->tell("modem signal 5");
    QVERIFY(waitForSignal(20));
    m_scene->tell("modem signal 99"); // none
    QVERIFY(waitForSignal(0));
}

void TestModem::networkLostAndBack()
{
    m_scene->tell("modem registration searching");
    QVERIFY(waitForState(Mm::Searching));
    QCOMPARE(linkState(modem(), 0, true), 1);
    QCOMPARE(linkState(modem(), 0, false), 0);
    m_scene->tell("modem registration roaming");
    QVERIFY(waitForState(Mm::Registered));
}

void TestModem::missingCard()
{
    expectMessage(text("4G does not work: there is no SIM card"));
    restart("missing");
    QVERIFY(waitForState(Mm::Failed));
    QCOMPARE(modem().signal, 0);
    QCOMPARE(linkState(modem(), 0, true), 0);
    restart("ready");
    QVERIFY(waitForState(Mm::Disabled));
}

void TestModem::cardThatCannotBeUsed_data()
{
    QTest::addColumn<QByteArray>("card");
    QTest::newRow("broken") << QByteArray("broken");
    QTest::newRow("wrong") << QByteArray("wrong");
}

void TestModem::cardThatCannotBeUsed()
{
    QFETCH(const QByteArray, card);
    expectMessage(text("4G does not work: there is no SIM card, or none that the modem takes"));
    restart(card.constData());
    QVERIFY(waitForState(Mm::Failed));
    QCOMPARE(modem().signal, 0);
    QCOMPARE(linkState(modem(), 0, true), 0);
    restart("ready");
    QVERIFY(waitForState(Mm::Disabled));
}

void TestModem::lockedCard()
{
    expectMessage(text("4G does not work: the SIM card wants a code"));
    restart("locked");
    QVERIFY(waitForState(Mm::Locked));
    QCOMPARE(linkState(modem(), 0, true), 0);
    restart("ready");
    QVERIFY(waitForState(Mm::Disabled));
}

void TestModem::daemonKilledAndStarted()
{
    m_scene->tell("mm kill");
    QVERIFY(waitForState(0));
    QCOMPARE(modem().signal, 0);
    m_scene->tell("mm start");
    QVERIFY(waitForState(Mm::Disabled));
    QVERIFY(enable());
    QVERIFY(waitForSignal(60));
}

void TestModem::frozenDaemonHoldsNobodyUp()
{
    QVERIFY(waitForSignal(60));
    m_scene->tell("mm freeze");
    QElapsedTimer whole;
    whole.start();
    qint64 longest = 0;
    while (whole.elapsed() < 2000) {
        QElapsedTimer call;
        call.start();
        QCOMPARE(modem().signal, 60); // the last that was told
        longest = std::max(longest, call.nsecsElapsed());
        QVERIFY(m_scene->waitForWorker());
    }
    QVERIFY2(longest < 16000000, qPrintable(QString::number(longest)));
    m_scene->tell("mm thaw");
    m_scene->tell("modem signal 31");
    QVERIFY(waitForSignal(100));
}

PANEL_TEST_MAIN(TestModem)
#include "test_modem.moc"
