#include "cards/general/cardbuzzer.h"

#include "controls/beepbutton.h"
#include "controls/beepswitch.h"
#include "tests/classes/cardscene.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

using QSP::CardBuzzer;

class TestCardBuzzer : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void rowHeight();
    void asksTheServiceEachTime();
    void switchingWritesAndTellsNothing();
    void openingShowsTheDevice();
    void openingWritesNothing();
    void worksWithoutAScreen();
};

void TestCardBuzzer::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardBuzzer::rowHeight()
{
    for (const auto &[size, height] :
         {std::pair(QSize(480, 800), 43), std::pair(QSize(600, 1024), 54), std::pair(QSize(800, 480), 42),
          std::pair(QSize(1024, 600), 54), std::pair(QSize(1280, 800), 68)}) {
        const CardScene scene(size);
        const CardBuzzer card;
        QCOMPARE(card.buzzerTitleRowHeight(), height);
    }
}

void TestCardBuzzer::asksTheServiceEachTime()
{
    const CardBuzzer card;
    HmiSimulator::setBuzzerOn(true);
    QVERIFY(card.buzzerOn());
    HmiSimulator::setBuzzerOn(false);
    QVERIFY(!card.buzzerOn());
}

void TestCardBuzzer::switchingWritesAndTellsNothing()
{
    CardBuzzer card;
    QSignalSpy changed(&card, &CardBuzzer::buzzerOnChanged);
    HmiSimulator::setBuzzerOn(true);
    card.switchClicked();
    QCOMPARE(Journal::calls(), QStringList{"setBuzzerOn(false)"});
    card.switchClicked();
    QCOMPARE(Journal::calls(), (QStringList{"setBuzzerOn(false)", "setBuzzerOn(true)"}));
    QCOMPARE(changed.count(), 0);
}

void TestCardBuzzer::openingShowsTheDevice()
{
    CardScene scene;
    auto *card = scene.card<CardBuzzer>("QSP::CardBuzzer");
    auto *turn = qobject_cast<QSP::BeepSwitch *>(Operator::byClass(card, "QSP::BeepSwitch"));
    QVERIFY(turn->on());
    QSignalSpy changed(card, &CardBuzzer::buzzerOnChanged);
    for (const bool on : {false, true, false}) {
        scene.close();
        HmiSimulator::setBuzzerOn(on);
        scene.open();
        QCOMPARE(turn->on(), on);
    }
    QCOMPARE(changed.count(), 3);
    // Also after a tap, which sets the switch past its binding.
    Operator::tap(turn);
    QVERIFY(turn->on());
    scene.close();
    HmiSimulator::setBuzzerOn(false);
    scene.open();
    QVERIFY(!turn->on());
}

void TestCardBuzzer::openingWritesNothing()
{
    CardScene scene;
    scene.close();
    HmiSimulator::setBuzzerOn(false);
    HmiSimulator::clearJournal();
    scene.open();
    QCOMPARE(Journal::calls(), QStringList());
    // What was read is what the next write is compared with.
    QSP::BeepButton::setBuzzerOn(false);
    QCOMPARE(Journal::calls(), QStringList());
}

void TestCardBuzzer::worksWithoutAScreen()
{
    CardBuzzer card;
    HmiSimulator::setBuzzerOn(false);
    QVERIFY(QMetaObject::invokeMethod(&card, "switchClicked"));
    QCOMPARE(Journal::calls(), QStringList{"setBuzzerOn(true)"});
}

PANEL_TEST_MAIN(TestCardBuzzer)

#include "test_cardbuzzer.moc"
