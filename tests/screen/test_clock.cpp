#include "tests/screen/generalpagetest.h"

#include <QtGui/QGuiApplication>

/// The clock as an operator sets it: the editor, the keyboard, and a host that closes or deletes the screen.
class TestClock : public GeneralPageTest
{
    Q_OBJECT

private slots:
    void setTheClock_data();
    void setTheClock();
    void clockRunsOnFromWhatWasSet();
    void editorShadesTheRest_data();
    void editorShadesTheRest();
    void clockRefused();
    void editorLeftAlone();
    void editorTextsFollowTheLanguage();
    void hostClosesWhileEditing();
    void hostDeletesWhileEditing();
};

void TestClock::setTheClock_data()
{
    addSizes();
}

void TestClock::setTheClock()
{
    QFETCH(QSize, size);
    build(size);
    openEditor();
    const QVector<QPair<QString, QString>> entries{{"Year", "2031"}, {"Month", "2"},   {"Day", "28"},
                                                   {"Hour", "23"},   {"Minute", "59"}, {"Second", "58"}};
    for (const auto &entry : entries) {
        Operator::tap(field(entry.first));
        QVERIFY2(isKeyboardShown(), qPrintable(entry.first));
        Operator::tap(keyboardKey(QStringLiteral("clear")));
        for (const QChar digit : entry.second)
            Operator::tap(keyboardKey(digit));
        QCOMPARE(field(entry.first)->property("text").toString(), entry.second);
        // Never covered while it is typed into.
        const QQuickItem *keyboard = named(QStringLiteral("vkbKeyboard"));
        const QQuickItem *box = field(entry.first);
        QVERIFY(box->mapToScene({0, box->height()}).y() <= keyboard->mapToScene(QPointF()).y());
    }
    Operator::tap(keyboardKey(QStringLiteral("enter")));
    QVERIFY(!isKeyboardShown());
    QVERIFY(!field(QStringLiteral("Year")));
    const qint64 seconds = QDateTime(QDate(2031, 2, 28), QTime(23, 59, 58)).toSecsSinceEpoch();
    QCOMPARE(Journal::callsButBeeps(),
             (QStringList{QStringLiteral("setSystemTime(%1)").arg(seconds), "syncHwclock()"}));
}

void TestClock::clockRunsOnFromWhatWasSet()
{
    build({1024, 600});
    const auto shown = [this] { return card("QSP::CardTime")->property("currentDateTime").toString(); };
    const QString today = shown();
    openEditor();
    Operator::tap(field(QStringLiteral("Year")));
    Operator::tap(keyboardKey(QStringLiteral("clear")));
    const QString year = QStringLiteral("2032");
    for (const QChar digit : year)
        Operator::tap(keyboardKey(digit));
    m_fixture->tapText(QStringLiteral("OK"));
    QVERIFY(!field(QStringLiteral("Year")));
    const QString first = shown();
    QVERIFY2(first.startsWith(QStringLiteral("2032") + today.mid(4, 6)), qPrintable(first));
    QVERIFY(Operator::byText(m_fixture->root(), first));
    QTRY_VERIFY(shown() != first);
    QVERIFY2(shown().startsWith(first.left(10)), qPrintable(shown()));
    // The editor too begins at the panel's time.
    openEditor();
    QCOMPARE(field(QStringLiteral("Year"))->property("text").toString(), QStringLiteral("2032"));
    // Another panel has another clock.
    HmiSimulator::reset();
    QTRY_VERIFY(shown().startsWith(today.left(4)));
}

void TestClock::editorShadesTheRest_data()
{
    addSizes();
}

void TestClock::editorShadesTheRest()
{
    QFETCH(QSize, size);
    build(size);
    const auto corner = [this, size] {
        return Operator::picture(m_fixture->window()).pixelColor(size.width() - 3, size.height() - 3);
    };
    const QColor light(0xF4, 0xF5, 0xF5);
    QTRY_COMPARE(corner(), light);
    openEditor();
    // As behind the dialogs.
    const auto isShaded = [&corner, &light] {
        return qAbs(corner().red() - light.red() * 0.6) <= 1.0 &&
               qAbs(corner().green() - light.green() * 0.6) <= 1.0;
    };
    QTRY_VERIFY2(isShaded(), qPrintable(corner().name()));
    Operator::tap(m_fixture->window(), {3, size.height() - 3});
    QTRY_VERIFY(!field(QStringLiteral("Year")));
    QTRY_COMPARE(corner(), light);
}

void TestClock::clockRefused()
{
    build({1024, 600});
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.clockRefused = true; });
    openEditor();
    m_fixture->tapText(QStringLiteral("OK"));
    QVERIFY(!field(QStringLiteral("Year")));
    const QStringList calls = Journal::callsButBeeps();
    QCOMPARE(calls.size(), 1);
    QVERIFY2(calls.first().startsWith(QLatin1String("setSystemTime(")), qPrintable(calls.first()));
}

void TestClock::editorLeftAlone()
{
    build({1024, 600});
    openEditor();
    Operator::tap(field(QStringLiteral("Year")));
    Operator::tap(keyboardKey(QStringLiteral("clear")));
    Operator::tap(keyboardKey(QStringLiteral("hide")));
    QVERIFY(!isKeyboardShown());
    m_fixture->tapText(QStringLiteral("OK"));
    QVERIFY2(field(QStringLiteral("Year")), "an empty year was confirmed");
    // The field to be put right is there to be typed into at once.
    QVERIFY(field(QStringLiteral("Year"))->hasActiveFocus());
    QVERIFY(isKeyboardShown());
    // A tap outside puts it away, and does nothing else: there is the menu underneath.
    Operator::tap(m_fixture->window(),
                  Operator::centerOf(Operator::byText(m_fixture->root(), QStringLiteral("Network"))));
    QTRY_VERIFY(!field(QStringLiteral("Year")));
    QCOMPARE(m_fixture->title(), QStringLiteral("General"));
    QCOMPARE(Journal::callsButBeeps(), QStringList());
    // Opened again, it is whole again.
    openEditor();
    QCOMPARE(field(QStringLiteral("Year"))->property("text").toString().size(), 4);
}

void TestClock::editorTextsFollowTheLanguage()
{
    build({1024, 600});
    openEditor();
    QVERIFY(Operator::byText(m_fixture->glass(), QStringLiteral("OK")));
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    // Asked for again while it is open, as a host may.
    m_fixture->open();
    QVERIFY(Operator::byText(m_fixture->glass(), QString::fromUtf8("确定")));
    QVERIFY(!Operator::byText(m_fixture->glass(), QStringLiteral("OK")));
    QVERIFY(field(QStringLiteral("Year")));
}

void TestClock::hostClosesWhileEditing()
{
    build({480, 800});
    for (int i = 0; i < 3; ++i) {
        openEditor();
        Operator::tap(field(QStringLiteral("Month")));
        Operator::tap(keyboardKey(QStringLiteral("1")));
        QVERIFY(isKeyboardShown());
        m_fixture->close();
        QVERIFY(!isKeyboardShown());
        QVERIFY(!field(QStringLiteral("Year")));
        // Keys that were under way reach nothing.
        Operator::type(m_fixture->window(), QStringLiteral("12"));
        Operator::key(m_fixture->window(), Qt::Key_Return);
        m_fixture->open();
        QVERIFY(!field(QStringLiteral("Year")));
        m_fixture->tapMenu(QStringLiteral("General"));
    }
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

void TestClock::hostDeletesWhileEditing()
{
    build({1024, 600});
    openEditor();
    Operator::tap(field(QStringLiteral("Month")));
    QVERIFY(isKeyboardShown());
    delete m_fixture->root();
    QVERIFY(!isKeyboardShown());
    QVERIFY(!field(QStringLiteral("Year")));
    Operator::type(m_fixture->window(), QStringLiteral("12"));
    Operator::settle(50);
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

PANEL_TEST_MAIN(TestClock)

#include "test_clock.moc"
