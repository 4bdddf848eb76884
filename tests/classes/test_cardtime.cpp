#include "cards/general/cardtime.h"

#include "controls/timeeditpopup.h"
#include "tests/classes/cardscene.h"
#include "tests/support/journal.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

#include <thread>

using QSP::CardTime;
using QSP::TimeEditPopup;

namespace {

/// Blocks, as a busy machine does, until the wall clock is where it is wanted.
template <class Condition> void blockUntil(Condition isReached)
{
    while (!isReached())
        std::this_thread::yield();
}

/// Waits, without a tick, until what the card shows is past.
void awaitNextSecond(const CardTime *card)
{
    const QString shown = card->currentDateTime().right(8);
    blockUntil([&shown] { return QTime::currentTime().toString(QStringLiteral("hh:mm:ss")) != shown; });
}

/// Waits until enough of the running second is left for what is checked within it.
void awaitSecondsBeginning()
{
    blockUntil([] { return QTime::currentTime().msec() <= 600; });
}

void awaitMiddleOfSecond()
{
    blockUntil([] { return qAbs(QTime::currentTime().msec() - 500) <= 100; });
}

/// Keeps the machine busy until a tick is overdue by more than a whole second, and by another half.
void missTicks()
{
    for (int i = 0; i < 2; ++i) {
        const int second = QTime::currentTime().second();
        blockUntil([second] { return QTime::currentTime().second() != second; });
    }
    awaitMiddleOfSecond();
}

/// Whether the next tick falls due when the second has just changed.
bool isOnTheSecond(const QTimer *timer)
{
    const int before = QTime::currentTime().msec();
    const int due = (before + timer->remainingTime()) % 1000;
    // Unless something came in between, and it says nothing.
    return qAbs(QTime::currentTime().msec() - before) <= 5 && timer->isActive() && due > 0 && due <= 40;
}

/// Waits until what the card began with is over, so that all that happens next has a new cause.
void awaitTicks(const QTimer *timer)
{
    QSignalSpy ticks(timer, &QTimer::timeout);
    QTRY_VERIFY(ticks.count() >= 2);
}

QString dateTimeText(const QDateTime &moment, const QLocale &locale)
{
    return locale.toString(moment, QStringLiteral("yyyy/MM/dd ddd hh:mm:ss"));
}

TimeEditPopup *editorOf(CardTime *card)
{
    return card->findChild<TimeEditPopup *>();
}

/// Confirms a time in the editor; how many times the card tells of a new one, of which none is by a tick.
int changesOnConfirming(CardTime *card, const QDateTime &chosen)
{
    card->openDialog();
    editorOf(card)->setCurrentDateTime(chosen);
    const QSignalSpy changed(card, &CardTime::currentDateTimeChanged);
    awaitNextSecond(card);
    editorOf(card)->onConfirmClicked();
    return changed.count();
}

} // namespace

class TestCardTime : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void rowHeight_data();
    void rowHeight();
    void showsTheTimeAtOnce();
    void ticksEachSecond();
    void changesWithTheSecond();
    void changesWithTheSecondAfterABusyTime();
    void startsAnewWhenOpened();
    void startsAnewWhenTheClockWasSet();
    void twoTicksInASecondTellOnce();
    void weekdayFollowsTheLanguageAtOnce();
    void editorIsMadeOnceAndStartsAtThePresent();
    void editorIsCentred();
    void confirmedTimeIsWritten();
    void refusedTimeIsNotCopied();
    void latestTime();
    void mayAlwaysBeSet();
};

void TestCardTime::init()
{
    beginWatch();
    HmiSimulator::reset();
    QSP::GlobalInfo::switchLanguage(QLocale(QLocale::English, QLocale::UnitedStates));
    HmiSimulator::clearJournal();
}

void TestCardTime::rowHeight_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<qreal>("height");
    QTest::newRow("480x800") << QSize(480, 800) << 43.0;
    QTest::newRow("600x1024") << QSize(600, 1024) << 54.0;
    QTest::newRow("800x480") << QSize(800, 480) << 42.5;
    QTest::newRow("1024x600") << QSize(1024, 600) << 54.4;
    QTest::newRow("1280x800") << QSize(1280, 800) << 68.0;
}

void TestCardTime::rowHeight()
{
    QFETCH(QSize, screen);
    const CardScene scene(screen);
    const CardTime card;
    QTEST(card.timeTitleRowHeight(), "height");
}

void TestCardTime::showsTheTimeAtOnce()
{
    awaitSecondsBeginning();
    const CardTime card;
    QCOMPARE(card.currentDateTime(),
             dateTimeText(QDateTime::currentDateTime(), QLocale(QLocale::English, QLocale::UnitedStates)));
}

void TestCardTime::ticksEachSecond()
{
    const CardTime card;
    const auto timers = card.findChildren<QTimer *>();
    QCOMPARE(timers.size(), 1);
    QVERIFY(timers.first()->isActive());
    QCOMPARE(timers.first()->interval(), 1000);
    QVERIFY(!timers.first()->isSingleShot());
    QSignalSpy changed(&card, &CardTime::currentDateTimeChanged);
    const QString before = card.currentDateTime();
    QTRY_COMPARE_WITH_TIMEOUT(changed.count(), 1, 2500);
    QVERIFY(card.currentDateTime() != before);
}

void TestCardTime::changesWithTheSecond()
{
    awaitMiddleOfSecond();
    const CardTime card;
    const auto *timer = card.findChild<QTimer *>();
    QCOMPARE(timer->timerType(), Qt::PreciseTimer);
    QVERIFY(!isOnTheSecond(timer));
    QTRY_VERIFY(isOnTheSecond(timer));
}

void TestCardTime::changesWithTheSecondAfterABusyTime()
{
    const CardTime card;
    const auto *timer = card.findChild<QTimer *>();
    QTRY_VERIFY(isOnTheSecond(timer));
    // The toolkit counts on from where it comes to the tick.
    missTicks();
    QCoreApplication::processEvents();
    QTRY_VERIFY(isOnTheSecond(timer));
}

void TestCardTime::startsAnewWhenOpened()
{
    const CardScene scene;
    const auto *card = scene.card<CardTime>("QSP::CardTime");
    auto *timer = card->findChild<QTimer *>();
    awaitTicks(timer);
    scene.root()->setVisible(false);
    timer->stop();
    const QString before = card->currentDateTime();
    awaitNextSecond(card);
    scene.root()->setVisible(true);
    QVERIFY(card->currentDateTime() != before);
    QTRY_VERIFY(isOnTheSecond(timer));
}

void TestCardTime::startsAnewWhenTheClockWasSet()
{
    const CardScene scene;
    auto *card = scene.card<CardTime>("QSP::CardTime");
    auto *timer = card->findChild<QTimer *>();
    awaitTicks(timer);
    card->openDialog();
    timer->stop();
    editorOf(card)->onConfirmClicked();
    QTRY_VERIFY(isOnTheSecond(timer));
}

void TestCardTime::twoTicksInASecondTellOnce()
{
    CardTime card;
    QSignalSpy changed(&card, &CardTime::currentDateTimeChanged);
    // Without the event loop: no tick but these.
    awaitNextSecond(&card);
    awaitSecondsBeginning();
    card.updateDateTime();
    card.updateDateTime();
    QCOMPARE(changed.count(), 1);
}

void TestCardTime::weekdayFollowsTheLanguageAtOnce()
{
    const CardTime card;
    QSignalSpy changed(&card, &CardTime::currentDateTimeChanged);
    const QLocale chinese(QLocale::Chinese, QLocale::China);
    awaitSecondsBeginning();
    QSP::GlobalInfo::switchLanguage(chinese);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(card.currentDateTime(), dateTimeText(QDateTime::currentDateTime(), chinese));
    QVERIFY(card.currentDateTime().contains(QString::fromUtf8("周")));
}

void TestCardTime::editorIsMadeOnceAndStartsAtThePresent()
{
    const CardScene scene;
    auto *card = scene.card<CardTime>("QSP::CardTime");
    QVERIFY(!editorOf(card));
    for (int i = 0; i < 2; ++i) {
        const QDateTime before = QDateTime::currentDateTime();
        card->openDialog();
        QCOMPARE(card->findChildren<TimeEditPopup *>().size(), 1);
        TimeEditPopup *editor = editorOf(card);
        QVERIFY(editor->isVisible());
        QVERIFY(editor->currentDateTime() >= before);
        QVERIFY(editor->currentDateTime() <= QDateTime::currentDateTime());
        QCOMPARE(editor->getInputDateTime().toSecsSinceEpoch(), editor->currentDateTime().toSecsSinceEpoch());
        editor->close();
        editor->setCurrentDateTime(QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
    }
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

void TestCardTime::editorIsCentred()
{
    const CardScene scene;
    auto *card = scene.card<CardTime>("QSP::CardTime");
    card->openDialog();
    const TimeEditPopup *editor = editorOf(card);
    QCOMPARE(editor->parentItem(), scene.root());
    QCOMPARE(editor->x(), (1024.0 - editor->width()) * 0.5);
    QCOMPARE(editor->y(), (600.0 - editor->height()) * 0.5);
}

void TestCardTime::confirmedTimeIsWritten()
{
    const CardScene scene;
    auto *card = scene.card<CardTime>("QSP::CardTime");
    const QDateTime chosen(QDate(2031, 8, 17), QTime(6, 7, 8));
    // At once, not with the next tick.
    QCOMPARE(changesOnConfirming(card, chosen), 1);
    QCOMPARE(
        Journal::calls(),
        (QStringList{QStringLiteral("setSystemTime(%1)").arg(chosen.toSecsSinceEpoch()), "syncHwclock()"}));
    QVERIFY(!editorOf(card)->isVisible());
}

void TestCardTime::refusedTimeIsNotCopied()
{
    const CardScene scene;
    auto *card = scene.card<CardTime>("QSP::CardTime");
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.clockRefused = true; });
    const QDateTime chosen(QDate(2031, 8, 17), QTime(6, 7, 8));
    QCOMPARE(changesOnConfirming(card, chosen), 0);
    QCOMPARE(Journal::calls(),
             QStringList{QStringLiteral("setSystemTime(%1)").arg(chosen.toSecsSinceEpoch())});
    QVERIFY(!editorOf(card)->isVisible());
}

void TestCardTime::latestTime()
{
    const CardScene scene;
    auto *card = scene.card<CardTime>("QSP::CardTime");
    card->openDialog();
    // The last minute that fits into 32 bits of seconds.
    const QDateTime latest = QDateTime::fromSecsSinceEpoch(0x7FFFFFFF - 7);
    editorOf(card)->setCurrentDateTime(latest);
    editorOf(card)->onConfirmClicked();
    QCOMPARE(Journal::calls(),
             (QStringList{QStringLiteral("setSystemTime(%1)").arg(0x7FFFFFFF - 7), "syncHwclock()"}));
}

void TestCardTime::mayAlwaysBeSet()
{
    const CardTime card;
    bool may = false;
    QVERIFY(QMetaObject::invokeMethod(const_cast<CardTime *>(&card), "allowUpdateSystemTime",
                                      Q_RETURN_ARG(bool, may)));
    QVERIFY(may);
}

PANEL_TEST_MAIN(TestCardTime)

#include "test_cardtime.moc"
