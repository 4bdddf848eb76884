#include "tests/classes/timeeditor.h"

namespace {

/// The last second that 32 bits hold.
constexpr qint64 g_latest = 0x7FFFFFFF;
/// Whether a long holds more than that here.
constexpr bool g_longIsWide = sizeof(long) > sizeof(qint32);

/// Types all of @p moment and taps OK.
void confirm(const TimeEditor &editor, const QDateTime &moment)
{
    // The day first leaves, so that no month on the way takes it.
    editor.fill("Day", QString());
    editor.fill("Year", moment.toString(QStringLiteral("yyyy")));
    editor.fill("Month", moment.toString(QStringLiteral("M")));
    editor.fill("Day", moment.toString(QStringLiteral("d")));
    editor.fill("Hour", moment.toString(QStringLiteral("H")));
    editor.fill("Minute", moment.toString(QStringLiteral("m")));
    editor.fill("Second", moment.toString(QStringLiteral("s")));
    Operator::tap(editor.button());
}

} // namespace

/// Times that the clock of a panel cannot hold: the service is told a long.
class TestTimeEditPopupLimit : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void lastSecondIsConfirmed();
    void whatALongHoldsIsConfirmed_data();
    void whatALongHoldsIsConfirmed();
    void beyondItLeadsToTheField_data();
    void beyondItLeadsToTheField();
    void putRightItIsConfirmed();
};

void TestTimeEditPopupLimit::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestTimeEditPopupLimit::lastSecondIsConfirmed()
{
    const TimeEditor editor;
    const QDateTime last = QDateTime::fromSecsSinceEpoch(g_latest);
    confirm(editor, last);
    QCOMPARE(editor.confirmed.count(), 1);
    QCOMPARE(editor.confirmed.first().first().toDateTime(), last);
}

void TestTimeEditPopupLimit::whatALongHoldsIsConfirmed_data()
{
    QTest::addColumn<QDateTime>("moment");
    QTest::newRow("a second later") << QDateTime::fromSecsSinceEpoch(g_latest + 1);
    QTest::newRow("the last of the years") << QDateTime(QDate(2038, 12, 31), QTime(23, 59, 59));
}

void TestTimeEditPopupLimit::whatALongHoldsIsConfirmed()
{
    QFETCH(const QDateTime, moment);
    const TimeEditor editor;
    confirm(editor, moment);
    QCOMPARE(editor.confirmed.count(), g_longIsWide ? 1 : 0);
    QCOMPARE(editor.popup->isVisible(), !g_longIsWide);
    for (const auto &arguments : editor.confirmed) {
        const qint64 seconds = arguments.first().toDateTime().toSecsSinceEpoch();
        QCOMPARE(qint64(static_cast<long>(seconds)), seconds);
    }
}

void TestTimeEditPopupLimit::beyondItLeadsToTheField_data()
{
    QTest::addColumn<qint64>("latest");
    QTest::addColumn<QDateTime>("moment");
    QTest::addColumn<QString>("field");
    const QDateTime last = QDateTime::fromSecsSinceEpoch(g_latest);
    QTest::newRow("a second") << g_latest << last.addSecs(1) << "Second";
    QTest::newRow("a minute") << g_latest << last.addSecs(60) << "Minute";
    QTest::newRow("an hour") << g_latest << last.addSecs(3600) << "Hour";
    QTest::newRow("a day") << g_latest << last.addDays(1) << "Day";
    QTest::newRow("a month") << g_latest << last.addMonths(1) << "Month";
    QTest::newRow("a month, and less of all else")
        << g_latest << QDateTime(QDate(2038, 2, 1), QTime(0, 0, 0)) << "Month";
    const QDateTime other(QDate(2030, 6, 15), QTime(12, 30, 30));
    QTest::newRow("a year") << other.toSecsSinceEpoch() << other.addYears(1) << "Year";
}

void TestTimeEditPopupLimit::beyondItLeadsToTheField()
{
    QFETCH(const qint64, latest);
    QFETCH(const QDateTime, moment);
    QFETCH(const QString, field);
    const TimeEditor editor;
    editor.popup->setLatestSecond(latest);
    confirm(editor, moment);
    QCOMPARE(editor.confirmed.count(), 0);
    QVERIFY(editor.popup->isVisible());
    QVERIFY(editor.field(field)->hasActiveFocus());
}

void TestTimeEditPopupLimit::putRightItIsConfirmed()
{
    const TimeEditor editor;
    editor.popup->setLatestSecond(g_latest);
    const QDateTime last = QDateTime::fromSecsSinceEpoch(g_latest);
    confirm(editor, last.addSecs(1));
    QCOMPARE(editor.confirmed.count(), 0);
    Operator::type(editor.scene.window(), last.toString(QStringLiteral("s")));
    Operator::key(editor.scene.window(), Qt::Key_Return);
    QCOMPARE(editor.confirmed.count(), 1);
    QCOMPARE(editor.confirmed.first().first().toDateTime(), last);
}

PANEL_TEST_MAIN(TestTimeEditPopupLimit)

#include "test_timeeditpopup_limit.moc"
