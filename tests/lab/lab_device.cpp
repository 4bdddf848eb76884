#include "tests/lab/labscene.h"
#include "tests/lab/refusals.h"

using namespace Lab;

/// What the kernel, the firmware and the services of the device do when the user of the screen asks for it.
class LabDevice : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase();
    static void clockReachesTheHardware();
    static void impossibleTime();
    static void buzzer();
    static void backlight();
    static void serialNumber();

private:
    /// As an operator who tries again: timedated has to be started, which may take longer here than the screen waits.
    static bool setsClock(long seconds)
    {
        if (number("clock") >= seconds)
            QWARN("the clock was set after all, when nobody waited any more");
        const Refusals refusals;
        return panel().setSystemTime(seconds);
    }

    /// The first second of the year 2030.
    static constexpr long Later = 1893456000;
};

void LabDevice::initTestCase()
{
    QTRY_VERIFY_WITH_TIMEOUT(isKnown(SystemSet::LAN0), Patience);
}

void LabDevice::clockReachesTheHardware()
{
    // As Debian is installed, the network would keep it.
    QCOMPARE(tell("synchronisation"), QStringList{QStringLiteral("enabled")});
    QVERIFY(number("hardware-clock") < Later);
    QTRY_VERIFY_WITH_TIMEOUT(setsClock(Later), Patience);
    panel().syncHwclock();
    const qint64 clock = number("clock");
    const qint64 hardware = number("hardware-clock");
    QVERIFY2(clock >= Later && clock < Later + 60, QByteArray::number(clock).constData());
    QVERIFY2(hardware >= Later && hardware < Later + 60, QByteArray::number(hardware).constData());
    QCOMPARE(tell("synchronisation"), QStringList{QStringLiteral("disabled")});
}

void LabDevice::impossibleTime()
{
    const qint64 before = number("clock");
    QVERIFY(!panel().setSystemTime(-1));
    const qint64 after = number("clock");
    QVERIFY(after >= before && after < before + 60);
}

void LabDevice::buzzer()
{
    panel().setBuzzerOn(true);
    QVERIFY(panel().isBuzzerOn());
    tell("heard");
    panel().beep(true);
    QStringList heard;
    QTRY_VERIFY_WITH_TIMEOUT((heard += tell("heard")).size() >= 2, Patience);
    QCOMPARE(heard, (QStringList{QStringLiteral("2000"), QStringLiteral("0")}));
}

void LabDevice::backlight()
{
    const qint64 highest = tell("backlight").value(1).toLongLong();
    QVERIFY(highest > 1);
    panel().setBright(SystemSet::BRIGHT_MAX, false);
    QTRY_COMPARE_WITH_TIMEOUT(number("backlight"), highest, Patience);
    panel().setBright(SystemSet::Bright(16), true);
    QTRY_VERIFY_WITH_TIMEOUT(number("backlight") > 1 && number("backlight") < highest, Patience);
    QCOMPARE(int(panel().bright()), 16);
    panel().setBright(SystemSet::BRIGHT_MIN, true);
    QTRY_COMPARE_WITH_TIMEOUT(number("backlight"), 1, Patience);
    QCOMPARE(int(panel().bright()), int(SystemSet::BRIGHT_MIN));
}

void LabDevice::serialNumber()
{
    QCOMPARE(panel().getSerialNumber(), std::string("LAB-0001"));
}

LAB_MAIN(LabDevice)
#include "lab_device.moc"
