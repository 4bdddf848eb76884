#include "tests/linux/paneldirectory.h"
#include "tests/support/paneltest.h"

#include "linux/config.h"
#include "linux/interfaces.h"

using namespace HmiLinux;
using HMI::SystemSet;

class TestLinuxConfig : public PanelTest
{
    Q_OBJECT

private slots:
    void missingFileIsAllDefaults();
    void sampleSaysTheDefaults();
    void fileThatCannotBeRead_data();
    void fileThatCannotBeRead();
    void everyKeyIsRead();
    void whatIsWrongIsToldWithItsLine_data();
    void whatIsWrongIsToldWithItsLine();
    void firstHardwareIsChosen();
    void namedInterfacesAreAdapters();
    void tunnelIsWhereAConnectionIs();

private:
    Config read(const QByteArray &contents)
    {
        m_panel.put(QStringLiteral("/linux.conf"), contents);
        m_problems.clear();
        return readConfig(m_panel.path() + QStringLiteral("/linux.conf"), &m_problems);
    }
    void addInterface(const QString &name, const QByteArray &type, const QByteArray &uevent,
                      bool isHardware) const
    {
        const QString directory = QStringLiteral("/sys/class/net/") + name;
        m_panel.put(directory + QStringLiteral("/type"), type);
        m_panel.put(directory + QStringLiteral("/uevent"), uevent);
        if (isHardware)
            m_panel.put(directory + QStringLiteral("/device/vendor"), "0x1234\n");
    }

    PanelDirectory m_panel;
    QStringList m_problems;
};

void TestLinuxConfig::missingFileIsAllDefaults()
{
    const Config config = readConfig(m_panel.path() + QStringLiteral("/nowhere.conf"), &m_problems);
    QVERIFY(m_problems.isEmpty());
    QCOMPARE(config.adapters.at(SystemSet::LAN0), QStringLiteral("auto"));
    QCOMPARE(config.pingTarget, QStringLiteral("gateway"));
}

void TestLinuxConfig::sampleSaysTheDefaults()
{
    const Config sample = readConfig(QStringLiteral(PANEL_SAMPLE), &m_problems);
    QCOMPARE(m_problems, QStringList());
    const Config defaults;
    QVERIFY(sample.adapters == defaults.adapters);
    QCOMPARE(sample.pingTarget, defaults.pingTarget);
    QCOMPARE(sample.pingTimeout, defaults.pingTimeout);
    QCOMPARE(sample.apn, defaults.apn);
    QCOMPARE(sample.vpnRetry, defaults.vpnRetry);
    QCOMPARE(sample.backlight, defaults.backlight);
    QCOMPARE(sample.backlightMinimum, defaults.backlightMinimum);
    QCOMPARE(sample.buzzer, defaults.buzzer);
    QCOMPARE(sample.buzzerFrequency, defaults.buzzerFrequency);
    QCOMPARE(sample.buzzerDuration, defaults.buzzerDuration);
    QCOMPARE(sample.serialNumber, defaults.serialNumber);
    QCOMPARE(sample.languageFile, defaults.languageFile);
    QCOMPARE(sample.stateDirectory, defaults.stateDirectory);
}

void TestLinuxConfig::fileThatCannotBeRead_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("target");
    const auto file = QStringLiteral("linux.conf");
    QTest::newRow("leads nowhere") << file << QStringLiteral("nowhere");
    QTest::newRow("leads to itself") << file << file;
    QTest::newRow("a directory") << file << QStringLiteral("/");
    QTest::newRow("cannot be read once it is open") << file << QStringLiteral("/proc/self/mem");
    QTest::newRow("where nobody gets") << QStringLiteral("etc") << QStringLiteral("etc");
}

void TestLinuxConfig::fileThatCannotBeRead()
{
    QFETCH(const QString, link);
    QFETCH(const QString, target);
    const PanelDirectory panel;
    QVERIFY(QFile::link(target, panel.path() + QLatin1Char('/') + link));
    const QString directory = link == QLatin1String("etc") ? QStringLiteral("/etc") : QString();
    m_problems.clear();
    const Config config = readConfig(panel.path() + directory + QStringLiteral("/linux.conf"), &m_problems);
    QCOMPARE(m_problems.size(), 1);
    QVERIFY2(m_problems.constFirst().startsWith(QLatin1String("linux.conf: cannot be read: ")),
             qPrintable(m_problems.constFirst()));
    QVERIFY(config.adapters == Config().adapters);
}

void TestLinuxConfig::everyKeyIsRead()
{
    const Config config =
        read("; other comment\n[adapters]\nLAN0=eth7\nLAN1 = none\nWIFI=wlan3\nMOBILE_4G=wwan1\nVPN=wg0\n"
             "[ping]\ntarget=192.0.2.1\ntimeout=500\n"
             "[mobile]\napn=internet.plant\n"
             "[vpn]\nAsia=asia office\nEurope=europe\nretry=5\n"
             "[backlight]\ndevice=lcd\nminimum=9\n"
             "[buzzer]\ndevice=/sys/class/gpio/gpio4/value\nfrequency=440\nduration=7\n"
             "[identity]\nserial-number=/etc/serial\n"
             "[language]\nfile=/data/language\n[state]\ndirectory=/data\n");
    QCOMPARE(m_problems, QStringList());
    QCOMPARE(config.adapters.at(SystemSet::LAN0), QStringLiteral("eth7"));
    QCOMPARE(config.adapters.at(SystemSet::LAN1), QStringLiteral("none"));
    QCOMPARE(config.adapters.at(SystemSet::WIFI), QStringLiteral("wlan3"));
    QCOMPARE(config.adapters.at(SystemSet::MOBILE_4G), QStringLiteral("wwan1"));
    QCOMPARE(config.adapters.at(SystemSet::VPN), QStringLiteral("wg0"));
    QCOMPARE(config.pingTarget, QStringLiteral("192.0.2.1"));
    QCOMPARE(config.pingTimeout, 500);
    QCOMPARE(config.apn, QStringLiteral("internet.plant"));
    QCOMPARE(config.vpnAsia, QStringLiteral("asia office"));
    QCOMPARE(config.vpnEurope, QStringLiteral("europe"));
    QCOMPARE(config.vpnRetry, 5);
    QCOMPARE(config.backlight, QStringLiteral("lcd"));
    QCOMPARE(config.backlightMinimum, 9);
    QCOMPARE(config.buzzer, QStringLiteral("/sys/class/gpio/gpio4/value"));
    QCOMPARE(config.buzzerFrequency, 440);
    QCOMPARE(config.buzzerDuration, 7);
    QCOMPARE(config.serialNumber, QStringLiteral("/etc/serial"));
    QCOMPARE(config.languageFile, QStringLiteral("/data/language"));
    QCOMPARE(config.stateDirectory, QStringLiteral("/data"));
}

void TestLinuxConfig::whatIsWrongIsToldWithItsLine_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *name, const char *contents, const char *problem) {
        QTest::newRow(name) << QByteArray(contents) << QString::fromLatin1(problem);
    };
    row("unknown key", "[adapters]\n\nLANO = eth0\n", "linux.conf:3: unknown key \"LANO\" in [adapters]");
    row("unknown section", "[adaptors]\nLAN0 = eth0\n", "linux.conf:1: unknown section \"adaptors\"");
    row("no section", "LAN0 = eth0\n", "linux.conf:1: \"LAN0\" stands in no section");
    row("open section", "[adapters\n", "linux.conf:1: a section ends in \"]\"");
    row("no key", "[adapters]\nLAN0\n", "linux.conf:2: neither a [section] nor a \"key = value\"");
    row("no value", "[adapters]\nLAN0 =\n", "linux.conf:2: \"LAN0\" has no value");
    row("too long", "[adapters]\nLAN0 = averyverylongname\n",
        "linux.conf:2: \"averyverylongname\" is no name of an interface");
    row("twice", "[adapters]\nLAN0 = eth0\nLAN0 = eth1\n",
        "linux.conf:3: \"LAN0\" is there twice; the first one counts");
    row("one interface for two", "[adapters]\nLAN1 = eth1\nWIFI = none\nMOBILE_4G = none\nVPN = eth1\n",
        "linux.conf:5: \"eth1\" is the interface of LAN1 already");
    row("no number", "[ping]\ntimeout = soon\n", "linux.conf:2: \"soon\" is no number from 100 to 14000");
    row("out of range", "[buzzer]\nduration = 0\n", "linux.conf:2: \"0\" is no number from 1 to 1000");
    row("no address", "[ping]\ntarget = 1.2.3\n",
        R"(linux.conf:2: "1.2.3" is neither "gateway" nor an IPv4 address)");
    row("relative path", "[language]\nfile = language\n",
        "linux.conf:2: \"language\" is not an absolute path");
    row("a path where a name is", "[backlight]\ndevice = /sys/x\n",
        "linux.conf:2: \"/sys/x\" is no name in /sys/class/backlight");
}

void TestLinuxConfig::whatIsWrongIsToldWithItsLine()
{
    QFETCH(const QByteArray, contents);
    QFETCH(const QString, problem);
    const Config config = read(contents + "[identity]\nserial-number = /etc/serial\n");
    QCOMPARE(m_problems, QStringList{problem});
    // What was wrong is as if it were not there, and all else holds.
    QCOMPARE(config.serialNumber, QStringLiteral("/etc/serial"));
    const bool isFirstKept = contents.contains("LAN0 = eth0\nLAN0");
    QCOMPARE(config.adapters.at(SystemSet::LAN0),
             isFirstKept ? QStringLiteral("eth0") : QStringLiteral("auto"));
    QCOMPARE(config.adapters.at(SystemSet::VPN), QStringLiteral("auto"));
    QCOMPARE(config.pingTimeout, Config().pingTimeout);
    QCOMPARE(config.buzzerDuration, Config().buzzerDuration);
}

void TestLinuxConfig::firstHardwareIsChosen()
{
    addInterface(QStringLiteral("lo"), "772\n", "INTERFACE=lo\n", false);
    addInterface(QStringLiteral("br0"), "1\n", "DEVTYPE=bridge\n", false);
    addInterface(QStringLiteral("eth10"), "1\n", "INTERFACE=eth10\n", true);
    addInterface(QStringLiteral("eth2"), "1\n", "INTERFACE=eth2\n", true);
    addInterface(QStringLiteral("wlan0"), "1\n", "DEVTYPE=wlan\n", true);
    addInterface(QStringLiteral("wwan0"), "1\n", "DEVTYPE=wwan\n", true);
    Config config;
    Interfaces chosen = chooseInterfaces(m_panel.root(), config);
    QCOMPARE(chosen.at(0), QStringLiteral("eth2"));
    QCOMPARE(chosen.at(1), QStringLiteral("eth10"));
    QCOMPARE(chosen.at(2), QStringLiteral("wlan0"));
    QCOMPARE(chosen.at(3), QStringLiteral("wwan0"));
    QCOMPARE(chosen.at(4), QString());
    QCOMPARE(adapterMask(chosen), SystemSet::LAN0 | SystemSet::LAN1 | SystemSet::WIFI | SystemSet::MOBILE_4G);

    // One that is named is not found a second time.
    config.adapters[SystemSet::LAN1] = QStringLiteral("eth2");
    chosen = chooseInterfaces(m_panel.root(), config);
    QCOMPARE(chosen.at(0), QStringLiteral("eth10"));
    QCOMPARE(chosen.at(1), QStringLiteral("eth2"));
}

void TestLinuxConfig::namedInterfacesAreAdapters()
{
    const PanelDirectory bare;
    Config config;
    QCOMPARE(adapterMask(chooseInterfaces(bare.root(), config)), 0);
    config.adapters[SystemSet::LAN1] = QStringLiteral("usb0");
    QCOMPARE(adapterMask(chooseInterfaces(bare.root(), config)), int(SystemSet::LAN1));
    config.adapters[SystemSet::LAN1] = QStringLiteral("none");
    QCOMPARE(adapterMask(chooseInterfaces(bare.root(), config)), 0);
}

void TestLinuxConfig::tunnelIsWhereAConnectionIs()
{
    const PanelDirectory bare;
    const auto tunnel = [&](const QByteArray &contents) {
        return chooseInterfaces(bare.root(), read(contents)).at(4);
    };
    QCOMPARE(tunnel("[adapters]\nVPN = tun3\n"), QString());
    QCOMPARE(tunnel("[vpn]\nEurope = work\n"), QStringLiteral("tun0"));
    QCOMPARE(tunnel("[adapters]\nVPN = wg0\n[vpn]\nAsia = work\n"), QStringLiteral("wg0"));
    QCOMPARE(tunnel("[adapters]\nVPN = none\n[vpn]\nAsia = work\n"), QString());
}

PANEL_TEST_MAIN(TestLinuxConfig)
#include "test_linux_config.moc"
