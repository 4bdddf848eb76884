#include "tests/screen/touchareatest.h"

#include <QtGui/QGuiApplication>

/// The touch areas of the Network page at every size: every kind of adapter, wherever the page is scrolled to.
class TestTouchNetwork : public TouchAreaTest
{
    Q_OBJECT

private slots:
    void adapters_data() { addSizes(); }
    void adapters();
    void adaptersThatCannotBeEdited_data() { addSizes(); }
    void adaptersThatCannotBeEdited();
    void besideTheKeyboard_data() { addSizes(); }
    void besideTheKeyboard();
};

void TestTouchNetwork::adapters()
{
    build();
    tapMenu(Network);
    for (const char *adapter : {"LAN0", "Wi-Fi", "4G", "VPN"}) {
        select(adapter);
        lookScrolled(adapter, 6);
    }
}

void TestTouchNetwork::adaptersThatCannotBeEdited()
{
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN0, true);
    HmiSimulator::setNicEnabled(HMI::SystemSet::WIFI, false);
    build();
    tapMenu(Network);
    for (const char *adapter : {"LAN0", "Wi-Fi"}) {
        select(adapter);
        lookScrolled(adapter, 6);
    }
}

void TestTouchNetwork::besideTheKeyboard()
{
    build();
    tapMenu(Network);
    const auto inputs = Operator::allByClass(card("QSP::CardNetwork"), "QSP::CIpInput");
    QCOMPARE(inputs.size(), 3);
    const auto fields = Operator::allByClass(inputs[2], "QQuickTextInput");
    reveal(inputs[2]);
    Operator::tap(fields.value(1));
    QTRY_VERIFY(fields.value(1)->hasActiveFocus());
    look("slid column", 6);
}

PANEL_TEST_MAIN(TestTouchNetwork)

#include "test_touch_network.moc"
