#include "tests/platform/keyboardfixture.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QElapsedTimer>

#include <algorithm>

/// Fingers: several at once, quick ones, long ones, sliding ones.
class TestKeyboardTouch : public PanelTest
{
    Q_OBJECT

private slots:
    void twoKeysAtOnce();
    void twoKeysInOneEvent();
    void keyWhileAnotherIsDown();
    void rapidTapsLoseNothing();
    void shiftHeldWithASecondFinger();
    void everyPointTypes_data();
    void everyPointTypes();
    void pressedKeyIsSeen();
    void slidingOffTakesEnterBack_data();
    void slidingOffTakesEnterBack();
    void rollingFingertipStillEnters();
    void backspaceRepeats();
    void repeatEndsWithTheTouch();
    void repeatStaysInItsField();
    void repeatEndsWhenHidden_data();
    void repeatEndsWhenHidden();
    void cancelledTouchLetsGo();
    void restingKeyboardHasNoTimer();

private:
    static int timersOf(QObject *object)
    {
        return QAbstractEventDispatcher::instance()->registeredTimers(object).size();
    }
    QTouchDevice *m_finger = KeyboardFixture::touchScreen();
};

namespace {

/// A mouse event without the pauses that the test library makes: some tests need thousands.
void send(QQuickWindow *window, QEvent::Type type, const QPoint &point)
{
    QMouseEvent event(type, point, window->mapToGlobal(point), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

} // namespace

void TestKeyboardTouch::twoKeysAtOnce()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const QPoint a = fixture.center(QStringLiteral("a"));
    const QPoint l = fixture.center(QStringLiteral("l"));
    QTest::touchEvent(&fixture.window, m_finger).press(0, a, &fixture.window);
    QTest::touchEvent(&fixture.window, m_finger).stationary(0).press(1, l, &fixture.window);
    QVERIFY(fixture.key(QStringLiteral("a"))->property("pressed").toBool());
    QVERIFY(fixture.key(QStringLiteral("l"))->property("pressed").toBool());
    QTest::touchEvent(&fixture.window, m_finger).release(0, a, &fixture.window).stationary(1);
    QVERIFY(!fixture.key(QStringLiteral("a"))->property("pressed").toBool());
    QVERIFY(fixture.key(QStringLiteral("l"))->property("pressed").toBool());
    QTest::touchEvent(&fixture.window, m_finger).release(1, l, &fixture.window);
    QVERIFY(!fixture.key(QStringLiteral("l"))->property("pressed").toBool());
    QCOMPARE(fixture.field->text(), QStringLiteral("al"));
}

void TestKeyboardTouch::twoKeysInOneEvent()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const QPoint q = fixture.center(QStringLiteral("q"));
    const QPoint p = fixture.center(QStringLiteral("p"));
    QTest::touchEvent(&fixture.window, m_finger).press(0, q, &fixture.window).press(1, p, &fixture.window);
    QTest::touchEvent(&fixture.window, m_finger)
        .release(0, q, &fixture.window)
        .release(1, p, &fixture.window);
    QString typed = fixture.field->text();
    std::sort(typed.begin(), typed.end());
    QCOMPARE(typed, QStringLiteral("pq"));
}

void TestKeyboardTouch::keyWhileAnotherIsDown()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const QPoint held = fixture.center(QStringLiteral("h"));
    QTest::touchEvent(&fixture.window, m_finger).press(0, held, &fixture.window);
    for (const QString &name :
         {QStringLiteral("e"), QStringLiteral("y"), QStringLiteral("backspace"), QStringLiteral("symbols"),
          QStringLiteral("+"), QStringLiteral("letters"), QStringLiteral("z")}) {
        const QPoint point = fixture.center(name);
        QTest::touchEvent(&fixture.window, m_finger).stationary(0).press(1, point, &fixture.window);
        QTest::touchEvent(&fixture.window, m_finger).stationary(0).release(1, point, &fixture.window);
    }
    QTest::touchEvent(&fixture.window, m_finger).release(0, held, &fixture.window);
    QCOMPARE(fixture.field->text(), QStringLiteral("he+z"));
}

void TestKeyboardTouch::rapidTapsLoseNothing()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const QString word = QStringLiteral("aabbccthequickbrownfoxjumpsoverthelazydog0123456789");
    int id = 0;
    QPoint previous;
    for (const QChar character : word) {
        // Each finger is down before the one before it is lifted.
        const QPoint point = fixture.center(QString(character));
        auto down = QTest::touchEvent(&fixture.window, m_finger);
        if (id > 0)
            down.stationary((id - 1) % 2);
        down.press(id % 2, point, &fixture.window).commit();
        if (id > 0) {
            QTest::touchEvent(&fixture.window, m_finger)
                .release((id - 1) % 2, previous, &fixture.window)
                .stationary(id % 2);
        }
        previous = point;
        ++id;
    }
    QTest::touchEvent(&fixture.window, m_finger).release((id - 1) % 2, previous, &fixture.window);
    QCOMPARE(fixture.field->text(), word);
}

void TestKeyboardTouch::shiftHeldWithASecondFinger()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const QPoint shift = fixture.center(QStringLiteral("shift"));
    QTest::touchEvent(&fixture.window, m_finger).press(0, shift, &fixture.window);
    for (const QString &name : {QStringLiteral("o"), QStringLiteral("k")}) {
        const QPoint point = fixture.center(name);
        QTest::touchEvent(&fixture.window, m_finger).stationary(0).press(1, point, &fixture.window);
        QTest::touchEvent(&fixture.window, m_finger).stationary(0).release(1, point, &fixture.window);
    }
    QTest::touchEvent(&fixture.window, m_finger).release(0, shift, &fixture.window);
    fixture.tap(QStringLiteral("o"));
    QCOMPARE(fixture.field->text(), QStringLiteral("OKo"));
}

void TestKeyboardTouch::everyPointTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QSize>("size");
    for (const QSize &size : {QSize(800, 480), QSize(480, 800)}) {
        const QByteArray name = QByteArray::number(size.width());
        QTest::newRow("full " + name) << int(VkbFullKeyboard) << size;
        QTest::newRow("address " + name) << int(VkbAddressDigits) << size;
        QTest::newRow("digits " + name) << int(VkbPlainDigits) << size;
    }
}

void TestKeyboardTouch::everyPointTypes()
{
    QFETCH(int, type);
    QFETCH(QSize, size);
    KeyboardFixture fixture(size);
    KeyRecorder recorder(fixture.window.contentItem());
    recorder.forceActiveFocus();
    fixture.show(static_cast<VkbLayoutType>(type));
    const QVector<QQuickItem *> keys = fixture.keys();
    const QQuickItem *pageKey = fixture.key(QStringLiteral("symbols"));
    QRectF hull;
    for (const QQuickItem *key : keys)
        hull |= QRectF(key->mapToScene(QPointF()), QSizeF(key->width(), key->height()));
    // Wherever a finger lands between the outermost keys, exactly one key is under it.
    int tried = 0;
    for (int y = int(hull.top()) - 3; y < hull.bottom() + 3; y += 9) {
        for (int x = int(hull.left()); x < hull.right(); x += 7) {
            const QPoint point(x, y);
            if (pageKey && pageKey->contains(pageKey->mapFromScene(point)))
                continue; // acts at once and leaves other keys behind
            send(&fixture.window, QEvent::MouseButtonPress, point);
            const auto pressed = std::count_if(keys.begin(), keys.end(), [](const QQuickItem *key) {
                return key->property("pressed").toBool();
            });
            const bool turned = fixture.key(QStringLiteral("letters"));
            send(&fixture.window, QEvent::MouseButtonRelease, point);
            if (turned)
                fixture.tap(QStringLiteral("letters")); // on the rim of the page key
            QVERIFY2(pressed == 1 || turned,
                     qPrintable(QStringLiteral("%1,%2: %3").arg(x).arg(y).arg(pressed)));
            ++tried;
        }
    }
    QVERIFY(tried > 1000);
}

void TestKeyboardTouch::pressedKeyIsSeen()
{
    for (const QString &name : {QStringLiteral("g"), QStringLiteral("enter"), QStringLiteral("hide"),
                                QStringLiteral("backspace")}) {
        KeyboardFixture fixture;
        fixture.show(VkbFullKeyboard);
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.window));
        const QQuickItem *key = fixture.key(name);
        const QPoint point = fixture.center(name);
        const QPoint face = key->mapToScene(QPointF(key->width() / 2, 8)).toPoint();
        const QColor resting = Operator::picture(&fixture.window).pixelColor(face);
        fixture.touchDown(0, point);
        QVERIFY(key->property("pressed").toBool());
        QVERIFY(Operator::picture(&fixture.window).pixelColor(face) != resting);
        fixture.touchUp(0, point);
        QVERIFY(!key->property("pressed").toBool());
        QCOMPARE(Operator::picture(&fixture.window).pixelColor(face), resting);
    }
}

void TestKeyboardTouch::slidingOffTakesEnterBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("enter") << "enter";
    QTest::newRow("hide") << "hide";
}

void TestKeyboardTouch::slidingOffTakesEnterBack()
{
    QFETCH(QString, name);
    KeyboardFixture fixture;
    KeyRecorder recorder(fixture.window.contentItem());
    recorder.forceActiveFocus();
    fixture.show(VkbFullKeyboard);
    const QPoint point = fixture.center(name);
    const QPoint away = fixture.center(QStringLiteral("t"));
    fixture.touchDown(0, point);
    QCOMPARE(recorder.strokes.size(), 0);
    fixture.touchMove(0, away);
    QTRY_VERIFY(!fixture.key(name)->property("pressed").toBool());
    fixture.touchUp(0, away);
    QCOMPARE(recorder.strokes.size(), 0);
    // Back on the key before the finger is lifted, it counts.
    fixture.touchDown(0, point);
    fixture.touchMove(0, away);
    fixture.touchMove(0, point);
    fixture.touchUp(0, point);
    QCOMPARE(recorder.strokes.size(), 2);
}

void TestKeyboardTouch::rollingFingertipStillEnters()
{
    KeyboardFixture fixture;
    QSignalSpy accepted(fixture.field, &QQuickTextInput::accepted);
    fixture.show(VkbPlainDigits);
    const QQuickItem *enter = fixture.key(QStringLiteral("enter"));
    const QPoint inside = enter->mapToScene(QPointF(3, enter->height() / 2)).toPoint();
    fixture.touchDown(0, inside);
    fixture.touchMove(0, inside - QPoint(9, 0));
    fixture.touchUp(0, inside - QPoint(9, 0));
    QCOMPARE(accepted.count(), 1);
}

void TestKeyboardTouch::backspaceRepeats()
{
    KeyboardFixture fixture;
    KeyRecorder recorder(fixture.window.contentItem());
    recorder.forceActiveFocus();
    fixture.show(VkbFullKeyboard);
    const QPoint point = fixture.center(QStringLiteral("backspace"));
    QElapsedTimer held;
    held.start();
    fixture.touchDown(0, point);
    QCOMPARE(recorder.strokes.size(), 2);
    QTRY_VERIFY(recorder.strokes.size() > 2);
    QVERIFY(held.elapsed() >= 400); // a tap is over by then
    QTRY_VERIFY_WITH_TIMEOUT(recorder.strokes.size() >= 10, 3000);
    QVERIFY(!recorder.strokes[0].autoRepeat);
    for (int i = 2; i < recorder.strokes.size(); ++i) {
        QVERIFY(recorder.strokes[i].autoRepeat);
        QCOMPARE(recorder.strokes[i].key, int(Qt::Key_Backspace));
        QCOMPARE(recorder.strokes[i].type, i % 2 == 0 ? QEvent::KeyPress : QEvent::KeyRelease);
    }
    fixture.touchUp(0, point);
    QCOMPARE(timersOf(fixture.keyboardItem()), 0);
    const int count = recorder.strokes.size();
    QCoreApplication::processEvents();
    QCOMPARE(recorder.strokes.size(), count);
}

void TestKeyboardTouch::repeatEndsWithTheTouch()
{
    KeyboardFixture fixture;
    fixture.field->setText(QStringLiteral("0123456789"));
    fixture.show(VkbPlainDigits);
    const QPoint point = fixture.center(QStringLiteral("backspace"));
    fixture.touchDown(0, point);
    QCOMPARE(timersOf(fixture.keyboardItem()), 1);
    fixture.touchUp(0, point);
    QCOMPARE(timersOf(fixture.keyboardItem()), 0);
    QCOMPARE(fixture.field->text(), QStringLiteral("012345678"));

    // Sliding off the key ends it too, and so does another key.
    fixture.touchDown(0, point);
    fixture.touchMove(0, fixture.center(QStringLiteral("4")));
    QTRY_COMPARE(timersOf(fixture.keyboardItem()), 0);
    fixture.touchUp(0, fixture.center(QStringLiteral("4")));
    QCOMPARE(fixture.field->text(), QStringLiteral("01234567"));

    QTest::touchEvent(&fixture.window, m_finger).press(0, point, &fixture.window);
    const QPoint nine = fixture.center(QStringLiteral("9"));
    QTest::touchEvent(&fixture.window, m_finger).stationary(0).press(1, nine, &fixture.window);
    QTest::touchEvent(&fixture.window, m_finger).stationary(0).release(1, nine, &fixture.window);
    QTRY_COMPARE(timersOf(fixture.keyboardItem()), 0);
    QTest::touchEvent(&fixture.window, m_finger).release(0, point, &fixture.window);
    QCOMPARE(fixture.field->text(), QStringLiteral("01234569"));
}

void TestKeyboardTouch::repeatStaysInItsField()
{
    KeyboardFixture fixture;
    QQuickTextInput other(fixture.window.contentItem());
    other.setText(QStringLiteral("untouched"));
    fixture.field->setText(QStringLiteral("abc"));
    fixture.show(VkbFullKeyboard);
    const QPoint point = fixture.center(QStringLiteral("backspace"));
    fixture.touchDown(0, point);
    other.forceActiveFocus();
    // The next repeat finds another field, and is the last.
    QTRY_COMPARE(timersOf(fixture.keyboardItem()), 0);
    QCOMPARE(other.text(), QStringLiteral("untouched"));
    QCOMPARE(fixture.field->text(), QStringLiteral("ab"));
    fixture.touchUp(0, point);
}

void TestKeyboardTouch::repeatEndsWhenHidden_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("finger") << false;
    QTest::newRow("mouse") << true;
}

void TestKeyboardTouch::repeatEndsWhenHidden()
{
    QFETCH(bool, byMouse);
    KeyboardFixture fixture;
    fixture.field->setText(QStringLiteral("abcdef"));
    fixture.show(VkbFullKeyboard);
    const QPoint point = fixture.center(QStringLiteral("backspace"));
    if (byMouse)
        QTest::mousePress(&fixture.window, Qt::LeftButton, Qt::NoModifier, point);
    else
        fixture.touchDown(0, point);
    QCOMPARE(timersOf(fixture.keyboardItem()), 1);
    fixture.keyboard->show(false);
    QCOMPARE(timersOf(fixture.keyboardItem()), 0);
    if (byMouse)
        QTest::mouseRelease(&fixture.window, Qt::LeftButton, Qt::NoModifier, point);
    else
        fixture.touchUp(0, point);
    fixture.keyboard->show(true);
    QCOMPARE(timersOf(fixture.keyboardItem()), 0);
    QCOMPARE(fixture.field->text(), QStringLiteral("abcde"));
    QVERIFY(!fixture.key(QStringLiteral("backspace"))->property("pressed").toBool());
}

void TestKeyboardTouch::cancelledTouchLetsGo()
{
    KeyboardFixture fixture;
    QSignalSpy accepted(fixture.field, &QQuickTextInput::accepted);
    fixture.show(VkbFullKeyboard);
    const QPoint point = fixture.center(QStringLiteral("enter"));
    fixture.touchDown(0, point);
    QVERIFY(fixture.key(QStringLiteral("enter"))->property("pressed").toBool());
    QTouchEvent cancel(QEvent::TouchCancel, m_finger);
    QCoreApplication::sendEvent(&fixture.window, &cancel);
    QVERIFY(!fixture.key(QStringLiteral("enter"))->property("pressed").toBool());
    fixture.touchUp(0, point);
    QCOMPARE(accepted.count(), 0);
    fixture.tap(QStringLiteral("enter"));
    QCOMPARE(accepted.count(), 1);
}

void TestKeyboardTouch::restingKeyboardHasNoTimer()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const auto everyTimer = [&fixture] {
        int timers = timersOf(fixture.keyboard->popup());
        const QVector<QQuickItem *> shown =
            Operator::items(fixture.keyboardItem(), [](QQuickItem *) { return true; });
        for (QQuickItem *item : shown)
            timers += timersOf(item);
        return timers;
    };
    QCOMPARE(everyTimer(), 0);
    fixture.touchDown(0, fixture.center(QStringLiteral("backspace")));
    QCOMPARE(everyTimer(), 1);
    fixture.touchUp(0, fixture.center(QStringLiteral("backspace")));
    QCOMPARE(everyTimer(), 0);
    fixture.touchDown(0, fixture.center(QStringLiteral("a")));
    QCOMPARE(everyTimer(), 0);
    fixture.touchUp(0, fixture.center(QStringLiteral("a")));
    fixture.keyboard->show(false);
    QCOMPARE(everyTimer(), 0);
}

PANEL_TEST_MAIN(TestKeyboardTouch)
#include "test_keyboard_touch.moc"
