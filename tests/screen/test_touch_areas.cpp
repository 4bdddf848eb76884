#include "tests/screen/touchareatest.h"

#include <QtGui/QGuiApplication>

/// Every page at every size: each control takes touches on as much of the glass as a finger in a glove
/// needs, or as its neighbours leave, and no two of them on the same spot.
class TestTouchAreas : public TouchAreaTest
{
    Q_OBJECT

private slots:
    void pages_data() { addSizes(); }
    void pages();
    void adapters_data() { addSizes(); }
    void adapters();
    void adaptersThatCannotBeEdited_data() { addSizes(); }
    void adaptersThatCannotBeEdited();
    void besideTheKeyboard_data() { addSizes(); }
    void besideTheKeyboard();
    void inChinese_data() { addSizes(); }
    void inChinese();
};

void TestTouchAreas::pages()
{
    build();
    look("start", 5);
    tapMenu(General);
    lookScrolled("general", 6);
    returnToMenu();
    tapMenu(Language);
    lookScrolled("language", 1);
    returnToMenu();
    tapMenu(Version);
    lookScrolled("version", 1);
}

void TestTouchAreas::adapters()
{
    build();
    tapMenu(Network);
    for (const char *adapter : {"LAN0", "Wi-Fi", "4G", "VPN"}) {
        select(adapter);
        lookScrolled(adapter, 6);
    }
}

void TestTouchAreas::adaptersThatCannotBeEdited()
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

void TestTouchAreas::besideTheKeyboard()
{
    build();
    tapMenu(Network);
    const auto inputs = Operator::allByClass(card("QSP::CardNetwork"), "QSP::CIpInput");
    QCOMPARE(inputs.size(), 3);
    const auto fields = Operator::allByClass(inputs[2], "QQuickTextInput");
    Operator::tap(fields.value(1));
    QTRY_VERIFY(fields.value(1)->hasActiveFocus());
    look("slid column", 6);
}

// Other texts make other widths.
void TestTouchAreas::inChinese()
{
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    build();
    look("start", 5);
    tapMenu(General);
    look("general", 6);
    returnToMenu();
    tapMenu(Network);
    look("network", 6);
}

PANEL_TEST_MAIN(TestTouchAreas)

#include "test_touch_areas.moc"
