#include "tests/screen/generalpagetest.h"

#include <QtGui/QGuiApplication>

#include <cmath>

namespace {

QStringList brightCalls()
{
    return Journal::calls("setBright");
}

} // namespace

/// The General page as an operator works it: texts, brightness, buzzer.
class TestGeneral : public GeneralPageTest
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void sliderDrawing_data();
    void sliderDrawing();
    void stepButtons();
    void stepAtTheEndSavesAlone();
    void holdSteps();
    void holdIsTakenBack();
    void pressedHandleIsSeen_data() { addSizes(); }
    void pressedHandleIsSeen();
    void sliderFollowsTheFinger();
    void sliderByTouch();
    void sliderBeepsIfTheBuzzerIsOn();
    void brightnessBeyondItsRange_data();
    void brightnessBeyondItsRange();
    void buzzerSwitch();
    void buzzerChangedElsewhere();
    void hostDeletesUnderTheFinger();

private:
    QQuickItem *brightness() const { return card("QSP::CardBrightness"); }
    QQuickItem *slider() const
    {
        return Operator::items(brightness(),
                               [](QQuickItem *item) { return item->property("visualPosition").isValid(); })
            .value(0);
    }
    QQuickItem *minus() const { return Operator::allByClass(brightness(), "QSP::BrightButton").value(0); }
    QQuickItem *plus() const { return Operator::allByClass(brightness(), "QSP::BrightButton").value(1); }
    QQuickItem *turn() const { return Operator::byClass(card("QSP::CardBuzzer"), "QSP::BeepSwitch"); }
    QPoint sliderPoint(int level) const;
};

// Where the middle of the handle is at that level.
QPoint TestGeneral::sliderPoint(int level) const
{
    const qreal handle = slider()->property("handle").value<QQuickItem *>()->width();
    const qreal x = handle / 2.0 + (level - 1) / 31.0 * (slider()->width() - handle);
    return slider()->mapToScene({x, slider()->height() / 2.0}).toPoint();
}

void TestGeneral::texts_data()
{
    addSizes();
}

void TestGeneral::texts()
{
    QFETCH(QSize, size);
    build(size);
    const auto shown = [this](const char *name) { return Operator::visibleTexts(card(name)); };
    QCOMPARE(shown("QSP::CardBrightness"), (QStringList{"Brightness", "20"}));
    QCOMPARE(shown("QSP::CardBuzzer"), (QStringList{"Buzzer", "Buzzer"}));
    QCOMPARE(shown("QSP::CardTime").mid(0, 2), (QStringList{"Time", "Date & Time"}));
    QCOMPARE(shown("QSP::CardTime").size(), 3);

    // The language changed elsewhere: all of them follow when the screen is opened.
    m_fixture->close();
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    m_fixture->open();
    if (size.width() < 800)
        m_fixture->tapMenu(QString::fromUtf8("通用设置"));
    QCOMPARE(shown("QSP::CardBrightness"), (QStringList{QString::fromUtf8("亮度"), "20"}));
    QCOMPARE(shown("QSP::CardBuzzer"),
             (QStringList{QString::fromUtf8("蜂鸣器"), QString::fromUtf8("蜂鸣器")}));
    const QStringList time = shown("QSP::CardTime");
    QCOMPARE(time.mid(0, 2), (QStringList{QString::fromUtf8("时间"), QString::fromUtf8("日期与时间")}));
    QVERIFY2(time.value(2).contains(QString::fromUtf8("周")), qPrintable(time.value(2)));
}

void TestGeneral::sliderDrawing_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("row");
    QTest::newRow("480x800") << QSize(480, 800) << 43;
    QTest::newRow("600x1024") << QSize(600, 1024) << 54;
    QTest::newRow("800x480") << QSize(800, 480) << 42;
    QTest::newRow("1024x600") << QSize(1024, 600) << 54;
    QTest::newRow("1280x800") << QSize(1280, 800) << 68;
    QTest::newRow("480x272") << QSize(480, 272) << 44;
    QTest::newRow("640x480") << QSize(640, 480) << 54;
    QTest::newRow("799x480") << QSize(799, 480) << 54;
}

void TestGeneral::sliderDrawing()
{
    QFETCH(QSize, size);
    QFETCH(int, row);
    build(size);
    QCOMPARE(brightness()->property("brightnessTitleRowHeight").toInt(), row);
    const auto round = [](qreal value) { return static_cast<int>(std::floor(value + 0.5)); };

    for (QQuickItem *button : {minus(), plus()}) {
        QCOMPARE(button->width(), qreal(round(0.55 * row)));
        QCOMPARE(button->height(), button->width());
        QCOMPARE(button->property("autoRepeat").toBool(), true);
    }
    const auto iconOf = [](QQuickItem *button) {
        return button->property("background").value<QQuickItem *>()->property("source").toUrl();
    };
    QCOMPARE(iconOf(minus()), QUrl("qrc:/setting/icons/newdecrease.png"));
    QCOMPARE(iconOf(plus()), QUrl("qrc:/setting/icons/newincrease.png"));

    const auto *handle = slider()->property("handle").value<QQuickItem *>();
    QCOMPARE(handle->width(), qreal(round(0.55 * row)));
    QCOMPARE(handle->height(), handle->width());
    auto *groove = slider()->property("background").value<QQuickItem *>();
    QCOMPARE(groove->height(), qreal(round(0.18 * row)));
    QCOMPARE(groove->property("radius").toReal(), groove->height() / 2.0);
    QCOMPARE(groove->property("color").value<QColor>(), QColor(0xC9, 0xCD, 0xD4));
    const QQuickItem *filled = groove->childItems().value(0);
    QVERIFY(filled);
    QCOMPARE(filled->property("color").value<QColor>(), QColor(0x34, 0x82, 0xFF));
    for (const int level : {20, 1, 32}) {
        brightness()->setProperty("brightnessValue", level);
        QCOMPARE(filled->width(), qreal(round(groove->width() * level / 32)));
        QVERIFY(Operator::byText(brightness(), QString::number(level)));
    }

    // Minus, slider, level, plus from left to right, nothing over another, all within the card.
    qreal right = 0.0;
    QQuickItem *level = Operator::byText(brightness(), QStringLiteral("32"))->parentItem();
    QCOMPARE(level->width(), qreal(round(0.5 * row)));
    for (QQuickItem *item : {minus(), slider(), level, plus()}) {
        const qreal left = item->mapToItem(brightness(), QPointF()).x();
        QVERIFY(left > right);
        right = left + item->width();
    }
    QVERIFY(right < brightness()->width());
}

void TestGeneral::stepButtons()
{
    build({1024, 600});
    HmiSimulator::setBuzzerOn(false);
    Operator::tap(plus());
    QCOMPARE(brightCalls(), (QStringList{"setBright(21, no save)", "setBright(21, save)"}));
    HmiSimulator::clearJournal();
    Operator::tap(minus());
    Operator::touch(minus());
    QCOMPARE(brightCalls(), (QStringList{"setBright(20, no save)", "setBright(20, save)",
                                         "setBright(19, no save)", "setBright(19, save)"}));
    QVERIFY(Operator::byText(brightness(), QStringLiteral("19")));
    QCOMPARE(slider()->property("value").toReal(), 19.0);
}

void TestGeneral::stepAtTheEndSavesAlone()
{
    HmiSimulator::setBright(1);
    build({1024, 600});
    QSignalSpy changed(brightness(), SIGNAL(brightnessValueChanged()));
    Operator::press(minus());
    QCOMPARE(brightCalls(), QStringList());
    Operator::release(minus());
    QCOMPARE(brightCalls(), QStringList{"setBright(1, save)"});
    QCOMPARE(changed.count(), 0);
}

void TestGeneral::holdSteps()
{
    HmiSimulator::setBright(30);
    build({1024, 600});
    Operator::press(plus());
    QTRY_COMPARE(HmiSimulator::panel().bright, 32);
    // Held on at the end, it has nothing more to do.
    Operator::settle(250);
    QCOMPARE(brightCalls(), (QStringList{"setBright(31, no save)", "setBright(32, no save)"}));
    Operator::release(plus());
    QCOMPARE(brightCalls(),
             (QStringList{"setBright(31, no save)", "setBright(32, no save)", "setBright(32, save)"}));
    QCOMPARE(HmiSimulator::panel().savedBright, 32);
}

void TestGeneral::holdIsTakenBack()
{
    build({1024, 600});
    // The finger slides off the button before it is lifted.
    const QPoint from = Operator::centerOf(plus());
    Operator::drag(m_fixture->window(), from, from + QPoint(0, 200));
    QCOMPARE(HmiSimulator::panel().bright, 21);
    QCOMPARE(HmiSimulator::panel().savedBright, 21);
    QVERIFY(!plus()->property("pressed").toBool());
    // The screen goes away under the finger.
    HmiSimulator::clearJournal();
    QQuickItem *button = plus();
    Operator::press(button);
    m_fixture->close();
    Operator::release(button);
    QCOMPARE(brightCalls().value(0), QStringLiteral("setBright(22, no save)"));
    QCOMPARE(HmiSimulator::panel().savedBright, 22);
    HmiSimulator::clearJournal();
    Operator::settle(500);
    QCOMPARE(brightCalls(), QStringList());
}

// From where the finger hides the half of it.
void TestGeneral::pressedHandleIsSeen()
{
    QFETCH(QSize, size);
    build(size);
    auto *handle = slider()->property("handle").value<QQuickItem *>();
    const QRect half =
        handle->mapRectToScene({0.0, 0.0, handle->width(), handle->height() / 2.0}).toAlignedRect();
    const auto seen = [&] { return Operator::picture(m_fixture->window()).copy(half); };
    const QImage before = seen();
    Operator::press(handle);
    // A page that scrolls holds a press back for a while.
    QTRY_VERIFY(slider()->property("pressed").toBool());
    const QImage during = seen();
    Operator::release(handle);
    int changed = 0;
    for (int y = 0; y < half.height(); ++y) {
        for (int x = 0; x < half.width(); ++x)
            changed += qAbs(qRed(before.pixel(x, y)) - qRed(during.pixel(x, y))) >= 48;
    }
    QVERIFY2(2 * changed > half.width() * half.height(), qPrintable(QString::number(changed)));
    QCOMPARE(seen(), before);
}

void TestGeneral::sliderFollowsTheFinger()
{
    build({1024, 600});
    Operator::drag(m_fixture->window(), sliderPoint(20), sliderPoint(25), 40);
    QStringList expected;
    for (int level = 21; level <= 25; ++level)
        expected << QStringLiteral("setBright(%1, no save)").arg(level);
    expected << QStringLiteral("setBright(25, save)");
    QCOMPARE(brightCalls(), expected);
    QVERIFY(Operator::byText(brightness(), QStringLiteral("25")));

    // Over the ends and back: each new level once, the last one saved.
    HmiSimulator::clearJournal();
    Operator::drag(m_fixture->window(), sliderPoint(25), sliderPoint(32) + QPoint(60, 0), 60);
    QCOMPARE(HmiSimulator::panel().bright, 32);
    QCOMPARE(brightCalls().size(), 8);
    QCOMPARE(brightCalls().constLast(), QStringLiteral("setBright(32, save)"));
    Operator::drag(m_fixture->window(), sliderPoint(32), sliderPoint(1) - QPoint(300, 0), 100);
    QCOMPARE(HmiSimulator::panel().bright, 1);
    QCOMPARE(brightCalls().constLast(), QStringLiteral("setBright(1, save)"));
}

void TestGeneral::sliderByTouch()
{
    build({480, 800});
    Operator::touch(slider());
    // The middle of the slider lies between two levels.
    const int level = HmiSimulator::panel().bright;
    QVERIFY2(level == 16 || level == 17, qPrintable(QString::number(level)));
    QCOMPARE(brightCalls(), (QStringList{QStringLiteral("setBright(%1, no save)").arg(level),
                                         QStringLiteral("setBright(%1, save)").arg(level)}));
    QCOMPARE(HmiSimulator::panel().savedBright, level);
}

void TestGeneral::sliderBeepsIfTheBuzzerIsOn()
{
    build({1024, 600});
    HmiSimulator::setBuzzerOn(true);
    Operator::drag(m_fixture->window(), sliderPoint(20), sliderPoint(22), 20);
    QCOMPARE(Journal::calls("beep"), QStringList{"beep(true)"});
    QCOMPARE(Journal::calls().constFirst(), QStringLiteral("beep(true)"));
    HmiSimulator::setBuzzerOn(false);
    HmiSimulator::clearJournal();
    Operator::drag(m_fixture->window(), sliderPoint(22), sliderPoint(20), 20);
    QCOMPARE(Journal::calls("beep"), QStringList());
}

void TestGeneral::brightnessBeyondItsRange_data()
{
    QTest::addColumn<int>("told");
    QTest::addColumn<int>("shownAt");
    QTest::newRow("0") << 0 << 1;
    QTest::newRow("99") << 99 << 32;
    QTest::newRow("-7") << -7 << 1;
}

void TestGeneral::brightnessBeyondItsRange()
{
    QFETCH(int, told);
    QFETCH(int, shownAt);
    HmiSimulator::setBright(told);
    m_fixture = std::make_unique<ScreenFixture>(QStringLiteral(PANEL_PLUGIN), QSize(1024, 600));
    m_fixture->open();
    m_fixture->close();
    m_fixture->open();
    QVERIFY(Operator::byText(brightness(), QString::number(told)));
    QCOMPARE(slider()->property("value").toInt(), shownAt);
    QCOMPARE(brightCalls(), QStringList());
    // A touch of the slider where it stands takes the level that it stands at.
    Operator::tap(m_fixture->window(), sliderPoint(shownAt));
    QCOMPARE(brightCalls(), (QStringList{QStringLiteral("setBright(%1, no save)").arg(shownAt),
                                         QStringLiteral("setBright(%1, save)").arg(shownAt)}));
    QVERIFY(Operator::byText(brightness(), QString::number(shownAt)));
    HmiSimulator::clearJournal();
    Operator::tap(m_fixture->window(), sliderPoint(10));
    QCOMPARE(brightCalls(), (QStringList{"setBright(10, no save)", "setBright(10, save)"}));
}

void TestGeneral::buzzerSwitch()
{
    build({800, 480});
    HmiSimulator::setBuzzerOn(true);
    Operator::tap(turn());
    QVERIFY(!turn()->property("on").toBool());
    // The click that turns it off is silent, the one that turns it on is heard.
    QCOMPARE(Journal::calls(), QStringList{"setBuzzerOn(false)"});
    QVERIFY(!HmiSimulator::panel().buzzer);
    Operator::touch(turn());
    QVERIFY(turn()->property("on").toBool());
    QCOMPARE(Journal::calls(), (QStringList{"setBuzzerOn(false)", "setBuzzerOn(true)", "beep(true)"}));
    QVERIFY(HmiSimulator::panel().buzzer);
}

void TestGeneral::buzzerChangedElsewhere()
{
    build({1024, 600});
    QVERIFY(turn()->property("on").toBool());
    m_fixture->close();
    HmiSimulator::setBuzzerOn(false);
    HmiSimulator::clearJournal();
    m_fixture->open();
    QVERIFY(!turn()->property("on").toBool());
    QCOMPARE(Journal::calls(), QStringList());
}

void TestGeneral::hostDeletesUnderTheFinger()
{
    build({1024, 600});
    QTest::mousePress(m_fixture->window(), Qt::LeftButton, Qt::NoModifier, sliderPoint(20));
    Operator::settle(250);
    QVERIFY(slider()->property("pressed").toBool());
    delete m_fixture->root();
    QTest::mouseRelease(m_fixture->window(), Qt::LeftButton);
    // Nothing to follow, but what the finger let go of is saved all the same.
    QCOMPARE(Journal::callsButBeeps(), QStringList{"setBright(20, save)"});
}

PANEL_TEST_MAIN(TestGeneral)

#include "test_general.moc"
