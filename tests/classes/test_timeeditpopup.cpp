#include "tests/classes/timeeditor.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QValidator>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>

using QSP::TimeEditPopup;
using QSP::VkbManager;

class TestTimeEditPopup : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void showsWhatItIsGiven();
    void settingTheSameTellsNothing();
    void everyDayOfTheYearsEndIsShownWhole();
    void sizes_data();
    void sizes();
    void looks();
    void whatCanBeTyped_data();
    void whatCanBeTyped();
    void dayGoesWithTheMonth_data();
    void dayGoesWithTheMonth();
    void returnConfirms_data();
    void returnConfirms();
    void buttonConfirms();
    void monthWithAndWithoutZero();
    void impossibleIsNotConfirmed_data();
    void impossibleIsNotConfirmed();
    void oneKeyEmptiesAField_data();
    void oneKeyEmptiesAField();
    void followsTheLanguage();
    void validatorOfNoField();
};

void TestTimeEditPopup::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestTimeEditPopup::showsWhatItIsGiven()
{
    const TimeEditor editor;
    QCOMPARE(editor.texts(), (QStringList{"2024", "03", "09", "14", "05", "07"}));
    QSignalSpy changed(editor.popup, &TimeEditPopup::currentDateTimeChanged);
    const QDateTime other(QDate(1999, 12, 31), QTime(23, 59, 59));
    editor.popup->setProperty("currentDateTime", other);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(editor.popup->property("currentDateTime").toDateTime(), other);
    QCOMPARE(editor.texts(), (QStringList{"1999", "12", "31", "23", "59", "59"}));
    QVERIFY(editor.popup->validateInputs());
    QCOMPARE(editor.popup->getInputDateTime(), other);
}

void TestTimeEditPopup::settingTheSameTellsNothing()
{
    const TimeEditor editor;
    QSignalSpy changed(editor.popup, &TimeEditPopup::currentDateTimeChanged);
    editor.popup->setCurrentDateTime(TimeEditor::someTime());
    QCOMPARE(changed.count(), 0);
    editor.popup->setCurrentDateTime(QDateTime());
    QCOMPARE(editor.texts(), (QStringList{"", "", "", "", "", ""}));
    QVERIFY(!editor.popup->validateInputs());
}

void TestTimeEditPopup::everyDayOfTheYearsEndIsShownWhole()
{
    // From a 31st to a short month and back: nothing in between takes the day.
    const TimeEditor editor;
    for (const QDate &date : {QDate(2024, 1, 31), QDate(2024, 2, 29), QDate(2023, 1, 31), QDate(2023, 4, 30),
                              QDate(2024, 2, 29), QDate(2038, 12, 31)}) {
        editor.popup->setCurrentDateTime(QDateTime(date, QTime(0, 0)));
        QCOMPARE(editor.text("Day"), QString::number(date.day()));
        QCOMPARE(editor.popup->getInputDateTime().date(), date);
    }
}

void TestTimeEditPopup::sizes_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<qreal>("base");
    QTest::addColumn<qreal>("scale");
    QTest::newRow("480x800") << QSize(480, 800) << 43.0 << 0.6;
    QTest::newRow("600x1024") << QSize(600, 1024) << 54.0 << 0.75;
    QTest::newRow("800x480") << QSize(800, 480) << 42.5 << 42.5 / 43.0;
    QTest::newRow("1024x600") << QSize(1024, 600) << 54.4 << 54.4 / 43.0 * 0.9;
    QTest::newRow("1280x800") << QSize(1280, 800) << 68.0 << 68.0 / 43.0 * 0.85;
    QTest::newRow("1920x1080") << QSize(1920, 1080) << 102.0 << 102.0 / 43.0 * 0.8;
}

void TestTimeEditPopup::sizes()
{
    QFETCH(QSize, screen);
    QFETCH(qreal, base);
    QFETCH(qreal, scale);
    const TimeEditor editor(screen);
    QCOMPARE(editor.popup->width(), 672.0 * scale);
    QCOMPARE(editor.popup->height(), 76.0 * scale);
    QVERIFY(editor.popup->width() <= screen.width());
    QCOMPARE(editor.popup->z(), 1000.0);

    const QVector<qreal> places{0, 113, 201, 296, 384, 472};
    for (int i = 0; i < TimeEditor::fieldNames().size(); ++i) {
        const QQuickTextInput *field = editor.field(TimeEditor::fieldNames()[i]);
        const QQuickItem *box = field->parentItem();
        QCOMPARE(box->x(), (20.0 + places[i]) * scale);
        QCOMPARE(box->y(), 20.0 * scale);
        QCOMPARE(box->width(), (i == 0 ? 85.0 : 60.0) * scale);
        QCOMPARE(box->height(), 36.0 * scale);
        QCOMPARE(field->font().pixelSize(), static_cast<int>(base * 0.35));
        QVERIFY2(field->contentWidth() < field->width(), qPrintable(field->objectName()));
        QVERIFY2(field->contentHeight() <= field->height(), qPrintable(field->objectName()));
    }
    const QQuickItem *button = editor.button();
    QCOMPARE(button->x(), 572.0 * scale);
    QCOMPARE(button->y(), 20.0 * scale);
    QCOMPARE(button->width(), 80.0 * scale);
    QCOMPARE(button->height(), 36.0 * scale);
    const auto *ok = qobject_cast<QQuickText *>(Operator::byText(editor.popup->contentItem(), "OK"));
    QCOMPARE(ok->font().pixelSize(), static_cast<int>(base * 0.35 * 0.9));
    QCOMPARE(ok->x(), (button->width() - ok->width()) * 0.5);
    QCOMPARE(ok->y(), (button->height() - ok->height()) * 0.5);
    auto *background = qobject_cast<QQuickRectangle *>(editor.popup->background());
    QCOMPARE(background->radius(), (screen.width() < screen.height() ? 8.0 : 15.0) * scale);
    QCOMPARE(background->width(), editor.popup->width());
    QCOMPARE(background->height(), editor.popup->height());
    QCOMPARE(background->border()->color(), QColor(0xC8, 0xCD, 0xD2));

    // Each separator stands in the gap behind its field.
    for (const auto &[text, count] : {std::pair("/", 2), std::pair(":", 2)}) {
        const auto separators = Operator::items(editor.popup->contentItem(), [text = text](QQuickItem *item) {
            return item->inherits("QQuickText") && item->property("text").toString() == QLatin1String(text);
        });
        QCOMPARE(separators.size(), count);
        for (const QQuickItem *separator : separators) {
            QCOMPARE(static_cast<const QQuickText *>(separator)->font().pixelSize(),
                     static_cast<int>(base * 0.4));
            const auto covered = [&](const QString &name) {
                const QQuickItem *box = editor.field(name)->parentItem();
                return QRectF(box->position(), box->size())
                    .intersects(QRectF(separator->position(), separator->size()));
            };
            QVERIFY(std::none_of(TimeEditor::fieldNames().begin(), TimeEditor::fieldNames().end(), covered));
        }
    }
}

void TestTimeEditPopup::looks()
{
    const TimeEditor editor;
    const QQuickTextInput *year = editor.field("Year");
    QCOMPARE(year->color(), QColor(0x1D, 0x21, 0x29));
    QCOMPARE(year->hAlign(), QQuickTextInput::AlignHCenter);
    QCOMPARE(year->vAlign(), QQuickTextInput::AlignVCenter);
    auto *box = qobject_cast<QQuickRectangle *>(year->parentItem());
    QCOMPARE(box->color(), QColor(0xF7, 0xF8, 0xFA));
    QCOMPARE(box->border()->color(), QColor(0xE6, 0xE7, 0xE9));
    QCOMPARE(box->border()->width(), 1.0);
    QCOMPARE(box->radius(), 4.0);
    const auto *face = qobject_cast<QQuickRectangle *>(Operator::byText(editor.button(), "OK")->parentItem());
    QCOMPARE(face->color(), QColor(0x34, 0x82, 0xFF));
    QCOMPARE(face->radius(), 5.0);
}

void TestTimeEditPopup::whatCanBeTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *typed, const char *text) {
        QTest::addRow("%s %s", name, typed) << name << typed << text;
    };
    row("Year", "2039", "203");
    row("Year", "1969", "199");
    row("Year", "2038", "2038");
    row("Year", "1970", "1970");
    row("Year", "20380", "2038");
    row("Year", "3", "");
    row("Month", "13", "1");
    row("Month", "12", "12");
    row("Month", "09", "09");
    row("Month", "00", "0");
    row("Day", "31", "31");
    row("Day", "32", "3");
    row("Day", "00", "0");
    row("Hour", "23", "23");
    row("Hour", "24", "2");
    row("Hour", "00", "00");
    row("Minute", "59", "59");
    row("Minute", "60", "6");
    row("Second", "59", "59");
    row("Second", "99", "9");
    row("Second", "abc-. 7", "7");
}

void TestTimeEditPopup::whatCanBeTyped()
{
    QFETCH(QString, name);
    QFETCH(QString, typed);
    const TimeEditor editor;
    editor.fill(name, typed);
    QTEST(editor.text(name), "text");
}

void TestTimeEditPopup::dayGoesWithTheMonth_data()
{
    QTest::addColumn<QStringList>("start");
    QTest::addColumn<QString>("changed");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("day");
    QTest::newRow("31 April") << QStringList{"2024", "3", "31"} << "Month"
                              << "4"
                              << "";
    QTest::newRow("30 April") << QStringList{"2024", "3", "30"} << "Month"
                              << "4"
                              << "30";
    QTest::newRow("29 February 2023") << QStringList{"2024", "2", "29"} << "Year"
                                      << "2023"
                                      << "";
    QTest::newRow("29 February 2024") << QStringList{"2020", "2", "29"} << "Year"
                                      << "2024"
                                      << "29";
    QTest::newRow("31 on the way to December") << QStringList{"2024", "3", "31"} << "Month"
                                               << "12"
                                               << "31";
    QTest::newRow("30 February") << QStringList{"2024", "3", "30"} << "Month"
                                 << "2"
                                 << "";
    QTest::newRow("31, month emptied") << QStringList{"2024", "3", "31"} << "Month"
                                       << ""
                                       << "31";
    QTest::newRow("no day") << QStringList{"2024", "3", ""} << "Month"
                            << "4"
                            << "";
}

void TestTimeEditPopup::dayGoesWithTheMonth()
{
    QFETCH(QStringList, start);
    QFETCH(QString, changed);
    QFETCH(QString, to);
    const TimeEditor editor;
    for (int i = 0; i < start.size(); ++i)
        editor.fill(TimeEditor::fieldNames()[i], start[i]);
    QCOMPARE(editor.text("Day"), start[2]);
    editor.fill(changed, to);
    QTEST(editor.text("Day"), "day");
}

void TestTimeEditPopup::returnConfirms_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("key");
    for (const QString &name : TimeEditor::fieldNames())
        QTest::newRow(qPrintable("Return in " + name)) << name << int(Qt::Key_Return);
    QTest::newRow("Enter in Day") << "Day" << int(Qt::Key_Enter);
}

void TestTimeEditPopup::returnConfirms()
{
    QFETCH(QString, name);
    QFETCH(int, key);
    TimeEditor editor;
    QSignalSpy changed(editor.popup, &TimeEditPopup::currentDateTimeChanged);
    editor.fill("Second", "42");
    Operator::tap(editor.field(name));
    Operator::key(editor.scene.window(), key);
    QCOMPARE(editor.confirmed.count(), 1);
    const QDateTime expected(TimeEditor::someTime().date(), QTime(14, 5, 42));
    QCOMPARE(editor.confirmed.first().first().toDateTime(), expected);
    QCOMPARE(editor.popup->currentDateTime(), expected);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!editor.popup->isVisible());
    QVERIFY(!VkbManager::instance().isVisible());
}

void TestTimeEditPopup::buttonConfirms()
{
    TimeEditor editor;
    editor.fill("Hour", "6");
    QVERIFY(VkbManager::instance().isVisible());
    HmiSimulator::setBuzzerOn(true);
    HmiSimulator::clearJournal();
    Operator::tap(editor.button());
    QCOMPARE(editor.confirmed.count(), 1);
    QCOMPARE(editor.confirmed.first().first().toDateTime(),
             QDateTime(TimeEditor::someTime().date(), QTime(6, 5, 7)));
    QCOMPARE(Journal::calls(), QStringList{"beep(true)"});
    QVERIFY(!editor.popup->isVisible());
    QVERIFY(!VkbManager::instance().isVisible());
}

void TestTimeEditPopup::monthWithAndWithoutZero()
{
    for (const char *month : {"9", "09"}) {
        TimeEditor editor;
        editor.fill("Month", QLatin1String(month));
        Operator::tap(editor.button());
        QCOMPARE(editor.confirmed.count(), 1);
        QCOMPARE(editor.confirmed.first().first().toDateTime().date(), QDate(2024, 9, 9));
    }
}

void TestTimeEditPopup::impossibleIsNotConfirmed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    for (const QString &name : TimeEditor::fieldNames())
        QTest::newRow(qPrintable(name + " empty")) << name << QString();
    for (const char *year : {"1", "2", "19", "20", "197", "203"})
        QTest::addRow("year %s", year) << "Year" << QString::fromLatin1(year);
    QTest::newRow("month 0") << "Month"
                             << "0";
    QTest::newRow("day 0") << "Day"
                           << "0";
    QTest::newRow("31 February") << "Day"
                                 << "31";
}

void TestTimeEditPopup::impossibleIsNotConfirmed()
{
    QFETCH(QString, name);
    QFETCH(QString, typed);
    TimeEditor editor;
    editor.fill("Month", "2");
    editor.fill(name, typed);
    QCOMPARE(editor.text(name), typed);
    Operator::tap(editor.button());
    QCOMPARE(editor.confirmed.count(), 0);
    QVERIFY(editor.popup->isVisible());
    QCOMPARE(editor.popup->currentDateTime(), TimeEditor::someTime());
    // The other way to confirm does no more.
    Operator::tap(editor.field(name));
    Operator::key(editor.scene.window(), Qt::Key_Return);
    QCOMPARE(editor.confirmed.count(), 0);
    QVERIFY(editor.popup->isVisible());
    QVERIFY(!VkbManager::instance().isVisible());
    // Corrected, it is confirmed.
    editor.popup->setCurrentDateTime(TimeEditor::someTime().addSecs(1));
    Operator::tap(editor.button());
    QCOMPARE(editor.confirmed.count(), 1);
}

void TestTimeEditPopup::oneKeyEmptiesAField_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Delete") << int(Qt::Key_Delete);
    QTest::newRow("Clear") << int(Qt::Key_Clear);
}

void TestTimeEditPopup::oneKeyEmptiesAField()
{
    QFETCH(int, key);
    const TimeEditor editor;
    Operator::tap(editor.field("Year"));
    Operator::key(editor.scene.window(), Qt::Key_End);
    Operator::key(editor.scene.window(), key);
    QCOMPARE(editor.texts(), (QStringList{"", "03", "09", "14", "05", "07"}));
    QVERIFY(editor.field("Year")->hasActiveFocus());
}

void TestTimeEditPopup::followsTheLanguage()
{
    const TimeEditor editor;
    const auto labels = Operator::visibleTexts(editor.button());
    QCOMPARE(labels, QStringList{"OK"});
    QSP::GlobalInfo::switchLanguage(QLocale(QLocale::Chinese, QLocale::China));
    QCOMPARE(Operator::visibleTexts(editor.button()), QStringList{QString::fromUtf8("确定")});
    QSP::GlobalInfo::switchLanguage(QLocale(QLocale::English, QLocale::UnitedStates));
    QCOMPARE(Operator::visibleTexts(editor.button()), QStringList{"OK"});
}

void TestTimeEditPopup::validatorOfNoField()
{
    const TimeEditor editor;
    QCOMPARE(editor.popup->createValidator(static_cast<TimeEditPopup::InputType>(6)), nullptr);
    const QValidator *validator = editor.popup->createValidator(TimeEditPopup::InputType::Year);
    QVERIFY(validator);
    QCOMPARE(validator->parent(), editor.popup);
}

PANEL_TEST_MAIN(TestTimeEditPopup)

#include "test_timeeditpopup.moc"
