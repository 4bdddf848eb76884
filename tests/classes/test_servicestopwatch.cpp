#include "shell/base/service.h"
#include "simulator/simulator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

using HMI::SystemSet;
using QSP::callService;
using QSP::ServiceStopwatch;

namespace {

constexpr qint64 minute = 60000;

qint64 g_now = 0;
// How long every call takes.
qint64 g_duration = 0;

qint64 testTime()
{
    return g_now;
}

} // namespace

/// What the screen measures of the service, by a clock that goes on only inside its calls.
class TestServiceStopwatch : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void namesOperations();
    void givesWhatTheServiceSays();
    void isSilentBelowTheLimit();
    void tellsEachOperationOnceAMinute();
};

void TestServiceStopwatch::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setGettersRecorded(true);
    HmiSimulator::watchJournal([](const HmiSimulator::Entry &) { g_now += g_duration; });
    ServiceStopwatch::setClock(&testTime);
    // What one function was told of is long ago for the next.
    g_now += 2 * minute;
}

void TestServiceStopwatch::cleanup()
{
    ServiceStopwatch::setClock(nullptr);
    HmiSimulator::watchJournal(nullptr);
    endWatch();
}

void TestServiceStopwatch::namesOperations()
{
    QCOMPARE(QSP::g_operationName<&SystemSet::getIp>.data(), "getIp");
    QCOMPARE(QSP::g_operationName<&SystemSet::get4GState>.data(), "get4GState");
    QCOMPARE(QSP::g_operationName<&SystemSet::connectWifi>.data(), "connectWifi");
    QCOMPARE(QSP::g_operationName<&SystemSet::reboot>.data(), "reboot");
}

void TestServiceStopwatch::givesWhatTheServiceSays()
{
    HmiSimulator::setLiveAddress(SystemSet::LAN1, 0x0A000001, 0xFF000000, 0x0A0000FE);
    QCOMPARE(quint32(callService<&SystemSet::getIp>(SystemSet::LAN1)), 0x0A000001U);
    callService<&SystemSet::setLanguage>(SystemSet::CHINESE);
    QCOMPARE(callService<&SystemSet::getLanguage>(), SystemSet::CHINESE);
}

void TestServiceStopwatch::isSilentBelowTheLimit()
{
    g_duration = 199;
    callService<&SystemSet::getIp>(SystemSet::LAN0);
    callService<&SystemSet::setDns>(SystemSet::LAN0, std::pair<HMI::IP, HMI::IP>());
}

void TestServiceStopwatch::tellsEachOperationOnceAMinute()
{
    const auto comes = [](const char *operation) {
        expectMessage(QStringLiteral("^%1: the service kept the screen waiting for 200 ms$")
                          .arg(QLatin1String(operation)));
    };
    g_duration = 200;
    comes("getIp");
    callService<&SystemSet::getIp>(SystemSet::LAN0);
    QVERIFY(haveMessagesCome());
    callService<&SystemSet::getIp>(SystemSet::LAN1);
    comes("isDhcpOn");
    callService<&SystemSet::isDhcpOn>(SystemSet::LAN0);
    QVERIFY(haveMessagesCome());

    // A minute less a millisecond after the end of the call that was told.
    g_now += minute - 3 * g_duration - 1;
    callService<&SystemSet::getIp>(SystemSet::LAN0);
    g_now += 1;
    comes("getIp");
    callService<&SystemSet::getIp>(SystemSet::LAN0);
    QVERIFY(haveMessagesCome());
}

PANEL_TEST_MAIN(TestServiceStopwatch)

#include "test_servicestopwatch.moc"
