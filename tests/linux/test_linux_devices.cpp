#include "tests/linux/networkscene.h"
#include "tests/support/paneltest.h"

#include "linux/beeper.h"
#include "linux/brightness.h"
#include "linux/buzzerswitch.h"
#include "linux/config.h"
#include "linux/languagefile.h"
#include "linux/serialnumber.h"

#include <QtCore/QSet>

#include <cstring>

#include <linux/input.h>

using namespace HmiLinux;
using HMI::SystemSet;

namespace {

const Later &atOnce()
{
    static const Later later = [](const std::function<void()> &work) { work(); };
    return later;
}

} // namespace

class TestLinuxDevices : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void brightnessCoversTheRange_data();
    void brightnessCoversTheRange();
    void brightnessIsKeptOnlyOnceSaved();
    void displayIsReadableFromTheStart_data();
    void displayIsReadableFromTheStart();
    void displayThatIsOnlyLookedAtStaysDark();
    void brightnessOutOfRangeChangesNothing();
    void brightnessThatMayNotBeWritten();
    void brightnessWithoutDevice();
    void serialNumberOfTheDeviceTree();
    void serialNumberOfAFile();
    void languageIsSharedWithOthers();
    void languageThatNobodyKnows();
    void buzzerKeepsItsSwitch();
    void withoutABuzzerKeysAreSilent_data();
    void withoutABuzzerKeysAreSilent();
    void buzzerSoundsThroughAFile();
    void buzzerIsSilentOnceItIsGone();
    void buzzerSoundsThroughAnInputDevice();
    void buzzerThatMayNotBeUsed();

private:
    void addBacklight(int maximum, int now) const
    {
        m_panel->put(QStringLiteral("/sys/class/backlight/lcd/max_brightness"),
                     QByteArray::number(maximum) + '\n');
        m_panel->put(QStringLiteral("/sys/class/backlight/lcd/brightness"), QByteArray::number(now) + '\n');
    }
    int raw() const
    {
        return m_panel->contents(QStringLiteral("/sys/class/backlight/lcd/brightness")).trimmed().toInt();
    }
    QString useGpio()
    {
        m_config.buzzer = QStringLiteral("/sys/class/gpio/gpio17/value");
        return m_config.buzzer;
    }

    std::unique_ptr<PanelDirectory> m_panel;
    Config m_config;
};

void TestLinuxDevices::init()
{
    beginWatch();
    m_panel = std::make_unique<PanelDirectory>();
    m_config = {};
}

void TestLinuxDevices::brightnessCoversTheRange_data()
{
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("minimum");
    for (const int maximum : {1, 7, 15, 31, 32, 100, 255, 4095, 65535})
        QTest::addRow("maximum %d", maximum) << maximum << 1;
    QTest::addRow("dark display") << 255 << 20;
}

void TestLinuxDevices::brightnessCoversTheRange()
{
    QFETCH(const int, maximum);
    QFETCH(const int, minimum);
    addBacklight(maximum, maximum);
    m_config.backlightMinimum = minimum;
    Brightness brightness(m_panel->root(), m_config, atOnce());
    QCOMPARE(brightness.level(), int(SystemSet::BRIGHT_MAX));
    int before = 0;
    for (int level = SystemSet::BRIGHT_MIN; level <= SystemSet::BRIGHT_MAX; ++level) {
        brightness.setLevel(level, false);
        QCOMPARE(brightness.level(), level);
        QVERIFY2(raw() >= minimum, "the display is never dark");
        QVERIFY(raw() >= before && raw() <= maximum);
        before = raw();
        // Where the driver has as many steps, the level is the same after a restart.
        if (maximum - minimum >= 31)
            QCOMPARE(Brightness(m_panel->root(), m_config, atOnce()).level(), level);
    }
    QCOMPARE(raw(), maximum);
    brightness.setLevel(SystemSet::BRIGHT_MIN, false);
    QCOMPARE(raw(), minimum);
}

void TestLinuxDevices::brightnessIsKeptOnlyOnceSaved()
{
    addBacklight(255, 255);
    {
        Brightness brightness(m_panel->root(), m_config, atOnce());
        brightness.setLevel(5, true);
        brightness.setLevel(20, false);
    }
    const int dragged = raw();
    // The panel starts again: what was only tried is gone, on the glass too.
    const Brightness brightness(m_panel->root(), m_config, atOnce());
    QCOMPARE(brightness.level(), 5);
    QVERIFY(raw() < dragged);
}

void TestLinuxDevices::displayIsReadableFromTheStart_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<QByteArray>("saved");
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("raw");
    QTest::addColumn<int>("level");
    QTest::newRow("darkest level, driver dark") << 1 << QByteArray("1\n") << 0 << 1 << 1;
    QTest::newRow("darkest level, driver too dark") << 40 << QByteArray("1\n") << 3 << 40 << 1;
    QTest::newRow("nothing saved, driver dark") << 1 << QByteArray() << 0 << 1 << 1;
    QTest::newRow("nothing saved, driver too dark") << 40 << QByteArray() << 3 << 40 << 1;
    QTest::newRow("nonsense saved, driver dark") << 1 << QByteArray("77\n") << 0 << 1 << 1;
    QTest::newRow("same level, driver between two") << 1 << QByteArray("2\n") << 6 << 9 << 2;
    QTest::newRow("nothing saved, driver between two") << 1 << QByteArray() << 6 << 6 << 2;
}

void TestLinuxDevices::displayIsReadableFromTheStart()
{
    QFETCH(const int, minimum);
    QFETCH(const QByteArray, saved);
    QFETCH(const int, found);
    addBacklight(255, found);
    m_config.backlightMinimum = minimum;
    if (!saved.isEmpty())
        m_panel->put(m_config.stateDirectory + QStringLiteral("/brightness"), saved);
    const Brightness brightness(m_panel->root(), m_config, atOnce());
    QTEST(raw(), "raw");
    QTEST(brightness.level(), "level");
}

void TestLinuxDevices::displayThatIsOnlyLookedAtStaysDark()
{
    addBacklight(255, 0);
    const Brightness brightness(Root(m_panel->path(), Root::Access::ReadOnly), m_config, atOnce());
    QCOMPARE(brightness.level(), int(SystemSet::BRIGHT_MIN));
    QCOMPARE(raw(), 0);
}

void TestLinuxDevices::brightnessOutOfRangeChangesNothing()
{
    addBacklight(255, 255);
    Brightness brightness(m_panel->root(), m_config, atOnce());
    brightness.setLevel(9, true);
    const int before = raw();
    for (const int level : {0, 33, -1, 99}) {
        brightness.setLevel(level, true);
        QCOMPARE(brightness.level(), 9);
        QCOMPARE(raw(), before);
    }
}

void TestLinuxDevices::brightnessThatMayNotBeWritten()
{
    const QString device = QStringLiteral("/sys/class/backlight/panel");
    m_panel->put(device + QStringLiteral("/max_brightness"), "255\n");
    QVERIFY(QDir().mkpath(m_panel->root().path(device + QStringLiteral("/brightness"))));
    expectMessage(QStringLiteral("the backlight /sys/class/backlight/panel may not be written"));
    Brightness brightness(m_panel->root(), m_config, atOnce());
    const int before = brightness.level();
    for (const int level : {SystemSet::BRIGHT_MAX, SystemSet::Bright(16)}) {
        brightness.setLevel(level, true);
        QCOMPARE(brightness.level(), before);
    }
    QVERIFY(!m_panel->root().read(m_config.stateDirectory + QStringLiteral("/brightness")));
}

void TestLinuxDevices::brightnessWithoutDevice()
{
    m_config.backlight = QStringLiteral("lcd");
    expectMessage(QStringLiteral("there is no backlight \"lcd\""));
    Brightness brightness(m_panel->root(), m_config, atOnce());
    brightness.setLevel(3, true);
    QCOMPARE(brightness.level(), 3);
}

void TestLinuxDevices::serialNumberOfTheDeviceTree()
{
    QCOMPARE(readSerialNumber(m_panel->root(), m_config), std::string());
    m_panel->put(QStringLiteral("/sys/class/dmi/id/product_serial"), "PC-1\n");
    QCOMPARE(readSerialNumber(m_panel->root(), m_config), std::string("PC-1"));
    m_panel->put(QStringLiteral("/proc/device-tree/serial-number"), QByteArray("HMI-0815\0", 9));
    QCOMPARE(readSerialNumber(m_panel->root(), m_config), std::string("HMI-0815"));
}

void TestLinuxDevices::serialNumberOfAFile()
{
    m_config.serialNumber = QStringLiteral("/etc/serial");
    expectMessage(QStringLiteral("the serial number cannot be read from /etc/serial"));
    QCOMPARE(readSerialNumber(m_panel->root(), m_config), std::string());
    m_panel->put(QStringLiteral("/etc/serial"), "A\xFF"
                                                "B\n");
    const std::string serial = readSerialNumber(m_panel->root(), m_config);
    QCOMPARE(QString::fromStdString(serial).toStdString(), serial); // well-formed, whatever stands there
}

void TestLinuxDevices::languageIsSharedWithOthers()
{
    LanguageFile file(m_panel->root(), m_config, atOnce());
    QCOMPARE(file.language(), SystemSet::ENGLISH);
    file.setLanguage(SystemSet::CHINESE);
    QCOMPARE(m_panel->contents(m_config.languageFile), QByteArray("zh\n"));
    file.setLanguage(static_cast<SystemSet::Language>(7));
    QCOMPARE(file.language(), SystemSet::CHINESE);

    m_panel->put(m_config.languageFile, "en");
    file.readAgain();
    QCOMPARE(file.language(), SystemSet::ENGLISH);
    QCOMPARE(LanguageFile(m_panel->root(), m_config, atOnce()).language(), SystemSet::ENGLISH);
}

void TestLinuxDevices::languageThatNobodyKnows()
{
    m_panel->put(m_config.languageFile, "klingon\n");
    expectMessage(QStringLiteral("holds no language of the panel"));
    QCOMPARE(LanguageFile(m_panel->root(), m_config, atOnce()).language(), SystemSet::ENGLISH);
}

void TestLinuxDevices::buzzerKeepsItsSwitch()
{
    BuzzerSwitch buzzer(m_panel->root(), m_config, true);
    QVERIFY(buzzer.isOn());
    buzzer.setOn(false);
    QVERIFY(!BuzzerSwitch(m_panel->root(), m_config, true).isOn());
    buzzer.setOn(true);
    QVERIFY(BuzzerSwitch(m_panel->root(), m_config, true).isOn());
    Beeper(m_config, nullptr).beep(); // into nothing
}

void TestLinuxDevices::withoutABuzzerKeysAreSilent_data()
{
    QTest::addColumn<QByteArray>("device");
    QTest::addColumn<bool>("isThere");
    QTest::newRow("none") << QByteArray("none") << false;
    QTest::newRow("nothing found") << QByteArray("auto") << false;
    QTest::newRow("a file") << QByteArray("/sys/class/gpio/gpio17/value") << true;
}

void TestLinuxDevices::withoutABuzzerKeysAreSilent()
{
    QFETCH(const QByteArray, device);
    NetworkScene scene;
    scene.panel.put(QStringLiteral("/etc/panelsettings/linux.conf"),
                    "[adapters]\nLAN0 = lan0\nWIFI = none\n[buzzer]\ndevice = " + device + '\n');
    QVERIFY(scene.isUp && scene.startAndWait());
    QFETCH(const bool, isThere);
    BuzzerSwitch &buzzer = scene.service->buzzer();
    QCOMPARE(buzzer.isOn(), isThere);
    for (const bool on : {false, true}) {
        buzzer.setOn(on);
        QCOMPARE(buzzer.isOn(), isThere && on);
    }
    // Nothing is kept for a buzzer that there may be on another day.
    const QByteArray kept = scene.panel.contents(m_config.stateDirectory + QStringLiteral("/buzzer"));
    QCOMPARE(kept, isThere ? QByteArray("on\n") : QByteArray());
}

void TestLinuxDevices::buzzerSoundsThroughAFile()
{
    const QString file = useGpio();
    m_panel->put(file, "0");
    m_config.buzzerDuration = 1;
    Beeper buzzer(m_config, makeSounder(m_panel->root(), m_config));
    buzzer.beep();
    QCOMPARE(m_panel->contents(file), QByteArray("1"));
    QTRY_COMPARE(m_panel->contents(file), QByteArray("0"));
}

void TestLinuxDevices::buzzerIsSilentOnceItIsGone()
{
    const QString file = useGpio();
    m_panel->put(file, "0");
    m_config.buzzerDuration = 1000;
    {
        Beeper buzzer(m_config, makeSounder(m_panel->root(), m_config));
        buzzer.beep();
        QCOMPARE(m_panel->contents(file), QByteArray("1"));
    }
    QCOMPARE(m_panel->contents(file), QByteArray("0"));
    // What was never used is not touched: somebody else may signal with it.
    m_panel->put(file, "1");
    makeSounder(m_panel->root(), m_config).reset();
    QCOMPARE(m_panel->contents(file), QByteArray("1"));
}

void TestLinuxDevices::buzzerSoundsThroughAnInputDevice()
{
    // What is written into a device is seen in a file of the same name.
    const QString device = QStringLiteral("/dev/input/event3");
    m_panel->put(device, {});
    m_config.buzzer = device;
    m_config.buzzerFrequency = 880;
    m_config.buzzerDuration = 1;
    Beeper buzzer(m_config, makeSounder(m_panel->root(), m_config));
    buzzer.beep();
    QTRY_COMPARE(m_panel->contents(device).size(), int(2 * sizeof(input_event)));
    const QByteArray written = m_panel->contents(device);
    std::array<input_event, 2> events = {};
    std::memcpy(events.data(), written.constData(), sizeof events);
    QCOMPARE(int(events[0].type), EV_SND);
    QCOMPARE(int(events[0].code), SND_TONE);
    QCOMPARE(events[0].value, 880);
    QCOMPARE(events[1].value, 0);
}

void TestLinuxDevices::buzzerThatMayNotBeUsed()
{
    m_config.buzzer = QStringLiteral("/dev/input/event3");
    expectMessage(QStringLiteral("the buzzer /dev/input/event3 cannot be opened"));
    QVERIFY(!makeSounder(m_panel->root(), m_config));

    useGpio();
    expectMessage(QStringLiteral("the buzzer may not be used"));
    Beeper buzzer(m_config, makeSounder(m_panel->root(), m_config));
    buzzer.beep();
    buzzer.beep(); // told once
    m_config.buzzer = QStringLiteral("none");
    QVERIFY(!makeSounder(m_panel->root(), m_config));
    m_config.buzzer = QStringLiteral("auto");
    QVERIFY(!makeSounder(m_panel->root(), m_config)); // there is no input device
}

PANEL_TEST_MAIN(TestLinuxDevices)
#include "test_linux_devices.moc"
