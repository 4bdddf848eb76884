#include "tests/classes/timeeditor.h"
#include "tests/support/journal.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QGuiApplication>
#include <QtGui/QValidator>
#include <QtQuick/private/qquickrectangle_p.h>

using QSP::VkbManager;

/// The editor and the keyboard, and how it ends.
class TestTimeEditPopupKeyboard : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void focusBeepsAndSelects();
    void ringShowsTheEditedField();
    void okLeadsToTheWrongField_data();
    void okLeadsToTheWrongField();
    void keyboardKeysType();
    void fieldToFieldKeepsTheKeyboard();
    void doneKeysEndTheEditing_data();
    void doneKeysEndTheEditing();
    void staysClearOfTheKeyboard_data();
    void staysClearOfTheKeyboard();
    void pressOutsideCloses();
    void pressOnTheKeyboardClosesNot();
    void closesWithTheScreen();
    void diesWhileEdited();
    void keyStorm();
};

void TestTimeEditPopupKeyboard::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestTimeEditPopupKeyboard::focusBeepsAndSelects()
{
    const TimeEditor editor;
    HmiSimulator::setBuzzerOn(true);
    HmiSimulator::clearJournal();
    Operator::touch(editor.field("Minute"));
    QCOMPARE(Journal::calls(), QStringList{"beep(true)"});
    QVERIFY(editor.field("Minute")->hasActiveFocus());
    QCOMPARE(editor.field("Minute")->selectedText(), QStringLiteral("05"));
    // What is typed takes the place of what was there.
    Operator::type(editor.scene.window(), QStringLiteral("8"));
    QCOMPARE(editor.text("Minute"), QStringLiteral("8"));
}

void TestTimeEditPopupKeyboard::ringShowsTheEditedField()
{
    const TimeEditor editor;
    const auto ring = [&editor](const QString &name) {
        return static_cast<QQuickRectangle *>(editor.field(name)->parentItem())->border()->color();
    };
    const auto ringed = [&ring] {
        QStringList names;
        for (const QString &name : TimeEditor::fieldNames()) {
            if (ring(name) == QColor(0x32, 0x69, 0xCE))
                names << name;
            else
                [&] { QCOMPARE(ring(name), QColor(0xE6, 0xE7, 0xE9)); }();
        }
        return names;
    };
    QCOMPARE(ringed(), QStringList());
    for (const QString &name : TimeEditor::fieldNames()) {
        Operator::tap(editor.field(name));
        QCOMPARE(ringed(), QStringList{name});
    }
    Operator::tap(editor.scene.keyboardKey("hide"));
    QCOMPARE(ringed(), QStringList());
}

void TestTimeEditPopupKeyboard::okLeadsToTheWrongField_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("wrong");
    const QStringList right{"2024", "02", "09", "14", "05", "07"};
    for (int i = 0; i < right.size(); ++i) {
        QStringList texts = right;
        texts[i].clear();
        QTest::addRow("no %s", qPrintable(TimeEditor::fieldNames()[i]))
            << texts << TimeEditor::fieldNames()[i];
    }
    QTest::newRow("year begun") << QStringList{"203", "02", "09", "14", "05", "07"} << "Year";
    QTest::newRow("month 0") << QStringList{"2024", "0", "09", "14", "05", "07"} << "Month";
    QTest::newRow("day 0") << QStringList{"2024", "02", "0", "14", "05", "07"} << "Day";
    QTest::newRow("31 February") << QStringList{"2024", "02", "31", "14", "05", "07"} << "Day";
    QTest::newRow("the first of several") << QStringList{"2024", "02", "", "14", "", ""} << "Day";
    QTest::newRow("nothing") << QStringList{"", "", "", "", "", ""} << "Year";
}

void TestTimeEditPopupKeyboard::okLeadsToTheWrongField()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, wrong);
    TimeEditor editor;
    for (int i = 0; i < texts.size(); ++i)
        editor.fill(TimeEditor::fieldNames()[i], texts[i]);
    QCOMPARE(editor.texts(), texts);
    Operator::tap(editor.button());
    QCOMPARE(editor.confirmed.count(), 0);
    QVERIFY(editor.popup->isVisible());
    for (const QString &name : TimeEditor::fieldNames())
        QCOMPARE(editor.field(name)->hasActiveFocus(), name == wrong);
    QVERIFY(VkbManager::instance().isVisible());
    QCOMPARE(editor.field(wrong)->selectedText(), editor.text(wrong));
}

void TestTimeEditPopupKeyboard::keyboardKeysType()
{
    TimeEditor editor;
    Operator::tap(editor.field("Year"));
    QVERIFY(VkbManager::instance().isVisible());
    // Digits only.
    QVERIFY(!editor.scene.keyboardKey("."));
    QVERIFY(!editor.scene.keyboardKey("q"));
    for (const char *digit : {"1", "9", "8", "7"})
        Operator::tap(editor.scene.keyboardKey(QLatin1String(digit)));
    QCOMPARE(editor.text("Year"), QStringLiteral("1987"));
    Operator::touch(editor.scene.keyboardKey("backspace"));
    Operator::touch(editor.scene.keyboardKey("8"));
    QCOMPARE(editor.text("Year"), QStringLiteral("1988"));
    Operator::tap(editor.scene.keyboardKey("clear"));
    QCOMPARE(editor.text("Year"), QString());
    for (const char *digit : {"2", "0", "3", "9", "8"})
        Operator::tap(editor.scene.keyboardKey(QLatin1String(digit)));
    QCOMPARE(editor.text("Year"), QStringLiteral("2038"));
    // The clock of a 32-bit panel ends in January of that year.
    Operator::tap(editor.scene.keyboardKey("backspace"));
    Operator::tap(editor.scene.keyboardKey("7"));
    Operator::tap(editor.scene.keyboardKey("enter"));
    QCOMPARE(editor.confirmed.count(), 1);
    QCOMPARE(editor.confirmed.first().first().toDateTime(), QDateTime(QDate(2037, 3, 9), QTime(14, 5, 7)));
    QVERIFY(!editor.popup->isVisible());
    QVERIFY(!VkbManager::instance().isVisible());
}

void TestTimeEditPopupKeyboard::fieldToFieldKeepsTheKeyboard()
{
    const TimeEditor editor;
    QSignalSpy keyboard(&VkbManager::instance(), &VkbManager::visibleChanged);
    qreal y = 0.0;
    for (const QString &name : TimeEditor::fieldNames()) {
        Operator::tap(editor.field(name));
        if (name == TimeEditor::fieldNames().first())
            y = editor.popup->y();
        QVERIFY2(editor.field(name)->hasActiveFocus(), qPrintable(name));
        QVERIFY2(VkbManager::instance().isVisible(), qPrintable(name));
        Operator::tap(editor.scene.keyboardKey("1"));
    }
    QCOMPARE(keyboard.count(), 1);
    QCOMPARE(editor.popup->y(), y);
    QCOMPARE(editor.texts(), (QStringList{"1", "1", "1", "1", "1", "1"}));
}

void TestTimeEditPopupKeyboard::doneKeysEndTheEditing_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("hide") << VkbManager::hideKey;
}

void TestTimeEditPopupKeyboard::doneKeysEndTheEditing()
{
    QFETCH(int, key);
    const TimeEditor editor;
    editor.fill("Day", "12");
    Operator::key(editor.scene.window(), key);
    QVERIFY(!editor.field("Day")->hasActiveFocus());
    QVERIFY(!VkbManager::instance().isVisible());
    QVERIFY(editor.popup->isVisible());
    QCOMPARE(editor.confirmed.count(), 0);
    QCOMPARE(editor.text("Day"), QStringLiteral("12"));
}

void TestTimeEditPopupKeyboard::staysClearOfTheKeyboard_data()
{
    QTest::addColumn<QSize>("screen");
    for (const QSize &size :
         {QSize(480, 800), QSize(600, 1024), QSize(800, 480), QSize(1024, 600), QSize(1280, 800)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestTimeEditPopupKeyboard::staysClearOfTheKeyboard()
{
    QFETCH(QSize, screen);
    const TimeEditor editor(screen);
    const qreal rest = editor.popup->y();
    const qreal keyboardHeight = [&editor] {
        Operator::tap(editor.field("Second"));
        return VkbManager::instance().getHeight();
    }();
    QVERIFY(keyboardHeight > 0.0);
    const qreal top = screen.height() - keyboardHeight;
    const qreal bottom = editor.popup->y() + editor.popup->height();
    QVERIFY2(bottom <= top, qPrintable(QStringLiteral("%1 > %2").arg(bottom).arg(top)));
    QVERIFY(editor.popup->y() >= 0.0);
    // Up just enough: not at all where there was room, else to right above the keyboard.
    if (rest + editor.popup->height() + 8.0 <= top)
        QCOMPARE(editor.popup->y(), rest);
    else
        QVERIFY(top - bottom <= 8.0);
    Operator::tap(editor.scene.keyboardKey("hide"));
    QVERIFY(!VkbManager::instance().isVisible());
    QCOMPARE(editor.popup->y(), rest);
    QVERIFY(editor.popup->isVisible());
    // And once more, from where it went back to.
    Operator::tap(editor.field("Year"));
    QCOMPARE(editor.popup->y() + editor.popup->height(), bottom);
}

void TestTimeEditPopupKeyboard::pressOutsideCloses()
{
    TimeEditor editor;
    editor.fill("Day", "12");
    Operator::tap(editor.scene.window(), {5, 5});
    QTRY_VERIFY(!editor.popup->isVisible());
    QVERIFY(!VkbManager::instance().isVisible());
    QCOMPARE(editor.confirmed.count(), 0);
    QCOMPARE(editor.popup->currentDateTime(), TimeEditor::someTime());
}

void TestTimeEditPopupKeyboard::pressOnTheKeyboardClosesNot()
{
    const TimeEditor editor;
    Operator::tap(editor.field("Day"));
    QVERIFY(VkbManager::instance().isVisible());
    // Beside the keys, and between them.
    for (const QPoint &point : {QPoint(2, 598), QPoint(1022, 330), QPoint(512, 598)}) {
        Operator::tap(editor.scene.window(), point);
        QVERIFY(editor.popup->isVisible());
        QVERIFY(editor.field("Day")->hasActiveFocus());
    }
}

void TestTimeEditPopupKeyboard::closesWithTheScreen()
{
    TimeEditor editor;
    Operator::tap(editor.field("Day"));
    QVERIFY(VkbManager::instance().isVisible());
    editor.scene.close();
    QTRY_VERIFY(!editor.popup->isVisible());
    QVERIFY(!VkbManager::instance().isVisible());
    QCOMPARE(editor.confirmed.count(), 0);
    editor.scene.open();
    QVERIFY(!editor.popup->isVisible());
}

void TestTimeEditPopupKeyboard::diesWhileEdited()
{
    const TimeEditor editor;
    Operator::tap(editor.field("Day"));
    QVERIFY(VkbManager::instance().isVisible());
    delete editor.popup;
    QVERIFY(!VkbManager::instance().isVisible());
    Operator::type(editor.scene.window(), QStringLiteral("12"));
}

void TestTimeEditPopupKeyboard::keyStorm()
{
    TimeEditor editor;
    QRandomGenerator random(20240309);
    const QVector<int> keys{Qt::Key_0,    Qt::Key_1,     Qt::Key_2,          Qt::Key_3,
                            Qt::Key_9,    Qt::Key_Minus, Qt::Key_Backspace,  Qt::Key_Delete,
                            Qt::Key_Left, Qt::Key_Right, Qt::Key_Escape,     Qt::Key_Tab,
                            Qt::Key_Home, Qt::Key_A,     VkbManager::hideKey};
    for (int i = 0; i < 500; ++i) {
        QVERIFY(editor.popup->isVisible());
        if (i % 10 == 0)
            Operator::tap(
                editor.field(TimeEditor::fieldNames()[random.bounded(TimeEditor::fieldNames().size())]));
        Operator::key(editor.scene.window(), keys[random.bounded(keys.size())]);
    }
    QVERIFY(editor.popup->isVisible());
    QCOMPARE(editor.confirmed.count(), 0);
    for (const QString &name : TimeEditor::fieldNames()) {
        QString text = editor.text(name);
        int position = 0;
        QVERIFY2(editor.field(name)->validator()->validate(text, position) != QValidator::Invalid,
                 qPrintable(name + ": " + text));
    }
}

PANEL_TEST_MAIN(TestTimeEditPopupKeyboard)

#include "test_timeeditpopup_keyboard.moc"
