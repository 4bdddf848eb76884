#include "tests/screen/touchareatest.h"

#include <QtGui/QGuiApplication>

/// The pages at every size: each control takes touches on as much of the glass as a finger in a glove
/// needs, or as its neighbours leave, and no two of them on the same spot.
class TestTouchAreas : public TouchAreaTest
{
    Q_OBJECT

private slots:
    void pages_data() { addSizes(); }
    void pages();
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
