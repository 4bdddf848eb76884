#include "tests/platform/keyboardfixture.h"

#include <functional>
#include <memory>

/// What comes out of the keys, one finger at a time.
class TestKeyboardTyping : public PanelTest
{
    Q_OBJECT

private slots:
    void addressDigits();
    void plainDigits();
    void everyPrintableCharacter();
    void hardwareAddress();
    void keyEventsAreWhole_data();
    void keyEventsAreWhole();
    void hideKeyIsLeftToTheField();
    void enterIsAccepted();
    void clearReachesTheField();
    void shiftOnceLockedOff();
    void mouseTypesToo();
    void doubleClickTypesTwice();
    void focusStaysAtEveryKey_data();
    void focusStaysAtEveryKey();
    void unacceptedKeysGoToTheParents();
    void releaseFollowsThePress();
    void withoutFocusKeysGoNowhere();
    void fieldDestroyedByItsKey();
    void fieldHidesTheKeyboard();
    void keyboardMovedByItsKey();
};

namespace {

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

QStringList characters(const char *text)
{
    QStringList names;
    for (; *text; ++text)
        names << QString(QLatin1Char(*text));
    return names;
}

/// Calls @p action for the first key press that reaches the watched item, and consumes all keys.
class KeyTrap : public QObject
{
public:
    explicit KeyTrap(std::function<void()> action) : m_action(std::move(action)) {}

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
            return false;
        if (m_action) {
            const std::function<void()> action = std::move(m_action);
            m_action = nullptr;
            action();
        }
        return true;
    }

private:
    std::function<void()> m_action;
};

} // namespace

void TestKeyboardTyping::addressDigits()
{
    KeyboardFixture fixture;
    fixture.show(VkbAddressDigits);
    QCOMPARE(fixture.keyNames(), sorted(characters("0123456789.") << "backspace"
                                                                  << "clear"
                                                                  << "enter"
                                                                  << "hide"));
    const QStringList names = characters("192.168.30.457");
    for (const QString &name : names)
        fixture.tap(name);
    QCOMPARE(fixture.field->text(), QStringLiteral("192.168.30.457"));
    fixture.tap(QStringLiteral("backspace"));
    QCOMPARE(fixture.field->text(), QStringLiteral("192.168.30.45"));
}

void TestKeyboardTyping::plainDigits()
{
    KeyboardFixture fixture;
    fixture.show(VkbPlainDigits);
    QCOMPARE(fixture.keyNames(), sorted(characters("0123456789") << "backspace"
                                                                 << "clear"
                                                                 << "enter"
                                                                 << "hide"));
    const QStringList names = characters("9876543210");
    for (const QString &name : names)
        fixture.tap(name);
    QCOMPARE(fixture.field->text(), QStringLiteral("9876543210"));
}

void TestKeyboardTyping::everyPrintableCharacter()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    QString all;
    for (char16_t code = 0x20; code < 0x7f; ++code) {
        const QChar character(code);
        all += character;
        const QChar onKey = character.toLower();
        if (!fixture.key(onKey))
            fixture.tap(fixture.key(QStringLiteral("symbols")) ? QStringLiteral("symbols")
                                                               : QStringLiteral("letters"));
        if (character.isUpper())
            fixture.tap(QStringLiteral("shift"));
        QVERIFY2(fixture.key(onKey), qPrintable(QString(character)));
        fixture.tap(fixture.key(onKey)->objectName().mid(7));
        QCOMPARE(fixture.field->text(), all);
    }
    QCOMPARE(all.size(), 95);
}

void TestKeyboardTyping::hardwareAddress()
{
    KeyboardFixture fixture;
    fixture.field->setInputMask(QStringLiteral("HH:HH:HH:HH:HH:HH"));
    fixture.field->setCursorPosition(0);
    fixture.show(VkbFullKeyboard);
    // Digits, hexadecimal letters and the colon are on one page.
    const QStringList names = characters("00:1a:2b:3c:4d:ef");
    for (const QString &name : names)
        fixture.tap(name);
    QCOMPARE(fixture.field->text(), QStringLiteral("00:1a:2b:3c:4d:ef"));
}

void TestKeyboardTyping::keyEventsAreWhole_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("shifted");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("a") << "a" << false << int(Qt::Key_A) << "a";
    QTest::newRow("A") << "a" << true << int(Qt::Key_A) << "A";
    QTest::newRow("7") << "7" << false << int(Qt::Key_7) << "7";
    QTest::newRow("7 with shift") << "7" << true << int(Qt::Key_7) << "7";
    QTest::newRow("colon") << ":" << false << int(Qt::Key_Colon) << ":";
    QTest::newRow("space") << "space" << false << int(Qt::Key_Space) << " ";
    QTest::newRow("backspace") << "backspace" << false << int(Qt::Key_Backspace) << "\b";
    QTest::newRow("enter") << "enter" << false << int(Qt::Key_Return) << "\r";
    QTest::newRow("hide") << "hide" << false << 0x100000 << "";
}

void TestKeyboardTyping::keyEventsAreWhole()
{
    QFETCH(QString, name);
    QFETCH(bool, shifted);
    QFETCH(int, code);
    QFETCH(QString, text);
    KeyboardFixture fixture;
    KeyRecorder recorder(fixture.window.contentItem());
    recorder.forceActiveFocus();
    fixture.show(VkbFullKeyboard);
    if (shifted)
        fixture.tap(QStringLiteral("shift"));
    QCOMPARE(recorder.strokes.size(), 0);
    fixture.tap(name);
    QCOMPARE(recorder.strokes.size(), 2);
    QCOMPARE(recorder.strokes[0].type, QEvent::KeyPress);
    QCOMPARE(recorder.strokes[1].type, QEvent::KeyRelease);
    const Qt::KeyboardModifiers modifiers = text == QLatin1String("A") ? Qt::ShiftModifier : Qt::NoModifier;
    for (const KeyRecorder::Stroke &stroke : qAsConst(recorder.strokes)) {
        QCOMPARE(stroke.key, code);
        QCOMPARE(stroke.text, text);
        QCOMPARE(stroke.modifiers, modifiers);
        QVERIFY(!stroke.autoRepeat);
    }
}

void TestKeyboardTyping::hideKeyIsLeftToTheField()
{
    KeyboardFixture fixture;
    fixture.field->setText(QStringLiteral("12"));
    for (const VkbLayoutType type : {VkbAddressDigits, VkbPlainDigits, VkbFullKeyboard}) {
        fixture.show(type);
        fixture.tap(QStringLiteral("hide"));
        QVERIFY(fixture.keyboard->isVisible());
        QCOMPARE(fixture.field->text(), QStringLiteral("12"));
        QCOMPARE(fixture.window.activeFocusItem(), fixture.field);
    }
}

void TestKeyboardTyping::enterIsAccepted()
{
    KeyboardFixture fixture;
    QSignalSpy accepted(fixture.field, &QQuickTextInput::accepted);
    for (const VkbLayoutType type : {VkbAddressDigits, VkbPlainDigits, VkbFullKeyboard}) {
        fixture.show(type);
        accepted.clear();
        fixture.tap(QStringLiteral("enter"));
        QCOMPARE(accepted.count(), 1);
    }
    QVERIFY(fixture.field->text().isEmpty());
}

void TestKeyboardTyping::clearReachesTheField()
{
    KeyboardFixture fixture;
    KeyRecorder recorder(fixture.window.contentItem());
    recorder.forceActiveFocus();
    fixture.show(VkbPlainDigits);
    fixture.tap(QStringLiteral("clear"));
    QCOMPARE(recorder.strokes.size(), 2);
    QCOMPARE(recorder.strokes[0].key, int(Qt::Key_Clear));
    QCOMPARE(recorder.strokes[0].text, QString());
}

void TestKeyboardTyping::shiftOnceLockedOff()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const auto typeKeys = [&fixture](const QStringList &names) {
        fixture.field->setText(QString());
        for (const QString &name : names)
            fixture.tap(name);
        return fixture.field->text();
    };
    QCOMPARE(typeKeys({"shift", "a", "b"}), QStringLiteral("Ab"));
    // Only a letter uses shift up.
    QCOMPARE(typeKeys({"shift", "1", "space", "c", "d"}), QStringLiteral("1 Cd"));
    QCOMPARE(typeKeys({"shift", "shift", "a", "b", "c"}), QStringLiteral("ABC"));
    QCOMPARE(typeKeys({"d", "shift", "e"}), QStringLiteral("De"));
    // The keys show what they will type.
    QVERIFY(Operator::byText(fixture.keyboardItem(), QStringLiteral("q")));
    fixture.tap(QStringLiteral("shift"));
    QVERIFY(Operator::byText(fixture.keyboardItem(), QStringLiteral("Q")));
    QVERIFY(!Operator::byText(fixture.keyboardItem(), QStringLiteral("q")));
    // Turning the page ends it.
    QCOMPARE(typeKeys({"symbols", "letters", "a"}), QStringLiteral("a"));
}

void TestKeyboardTyping::mouseTypesToo()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const QStringList names = QStringList({"shift", "p", "w", "symbols", "#", "letters", "1", "backspace"});
    for (const QString &name : names)
        fixture.click(name);
    QCOMPARE(fixture.field->text(), QStringLiteral("Pw#"));
}

void TestKeyboardTyping::doubleClickTypesTwice()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    QTest::mouseDClick(&fixture.window, Qt::LeftButton, Qt::NoModifier, fixture.center(QStringLiteral("s")));
    QCOMPARE(fixture.field->text(), QStringLiteral("ss"));
}

void TestKeyboardTyping::focusStaysAtEveryKey_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("address") << int(VkbAddressDigits);
    QTest::newRow("digits") << int(VkbPlainDigits);
    QTest::newRow("full") << int(VkbFullKeyboard);
}

void TestKeyboardTyping::focusStaysAtEveryKey()
{
    QFETCH(int, type);
    KeyboardFixture fixture;
    fixture.show(static_cast<VkbLayoutType>(type));
    QSignalSpy focusChanged(&fixture.window, &QQuickWindow::activeFocusItemChanged);
    for (const QString &page : {QStringLiteral("symbols"), QStringLiteral("letters")}) {
        const QStringList names = fixture.keyNames();
        for (const QString &name : names) {
            if (name == QLatin1String("symbols") || name == QLatin1String("letters"))
                continue;
            fixture.tap(name);
            fixture.click(name);
        }
        if (fixture.key(page))
            fixture.tap(page);
    }
    QCOMPARE(focusChanged.count(), 0);
    QCOMPARE(fixture.window.activeFocusItem(), fixture.field);
}

void TestKeyboardTyping::unacceptedKeysGoToTheParents()
{
    KeyboardFixture fixture;
    KeyRecorder recorder(fixture.window.contentItem());
    QQuickItem child(&recorder);
    child.forceActiveFocus();
    fixture.show(VkbFullKeyboard);
    fixture.tap(QStringLiteral("hide"));
    QCOMPARE(recorder.strokes.size(), 2);
    QCOMPARE(recorder.strokes[0].key, 0x100000);
}

void TestKeyboardTyping::releaseFollowsThePress()
{
    KeyboardFixture fixture;
    KeyRecorder next(fixture.window.contentItem());
    QObject::connect(fixture.field, &QQuickTextInput::accepted, &next, [&next] { next.forceActiveFocus(); });
    fixture.show(VkbFullKeyboard);
    fixture.tap(QStringLiteral("enter"));
    QCOMPARE(fixture.window.activeFocusItem(), &next);
    QCOMPARE(next.strokes.size(), 0);
    fixture.tap(QStringLiteral("x"));
    QCOMPARE(next.strokes.size(), 2);
}

void TestKeyboardTyping::withoutFocusKeysGoNowhere()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    fixture.field->setFocus(false);
    QVERIFY(fixture.window.activeFocusItem() != fixture.field);
    for (const char *name : {"a", "backspace", "enter", "hide", "shift", "symbols", "letters"})
        fixture.tap(QLatin1String(name));
    QCOMPARE(fixture.field->text(), QString());
    QVERIFY(fixture.keyboard->isVisible());

    QQuickWindow inactive; // never shown, so nothing in it can have the focus
    inactive.resize(800, 480);
    QVkbInterface *keyboard = QVkbPluginLoader::instance(&inactive)->vkb();
    keyboard->initialize(&inactive, 1);
    keyboard->show(true);
    QVERIFY(!inactive.activeFocusItem());
    const auto keys = Operator::items(keyboard->item(), [](QQuickItem *item) {
        return item->isVisible() && item->objectName().startsWith(QLatin1String("vkbKey_"));
    });
    QVERIFY(keys.size() > 40);
    for (QQuickItem *key : keys)
        QTest::mouseClick(&inactive, Qt::LeftButton, Qt::NoModifier, Operator::centerOf(key));
    QVERIFY(keyboard->isVisible());
}

void TestKeyboardTyping::fieldDestroyedByItsKey()
{
    for (const QString &name : {QStringLiteral("a"), QStringLiteral("backspace"), QStringLiteral("enter"),
                                QStringLiteral("hide")}) {
        KeyboardFixture fixture;
        QPointer<QQuickTextInput> field = fixture.field;
        KeyTrap trap([&field] { delete field.data(); });
        field->installEventFilter(&trap);
        fixture.show(VkbFullKeyboard);
        fixture.tap(name);
        QVERIFY(!field);
        QVERIFY(fixture.keyboard->isVisible());
        fixture.tap(name);
    }
}

void TestKeyboardTyping::fieldHidesTheKeyboard()
{
    KeyboardFixture fixture;
    KeyTrap trap([&fixture] {
        fixture.window.contentItem()->forceActiveFocus();
        fixture.keyboard->show(false);
    });
    fixture.field->installEventFilter(&trap);
    fixture.show(VkbFullKeyboard);
    fixture.tap(QStringLiteral("hide"));
    QVERIFY(!fixture.keyboard->isVisible());
    // Nothing of the touch is left over.
    fixture.field->removeEventFilter(&trap);
    fixture.field->forceActiveFocus();
    fixture.show(VkbFullKeyboard);
    const QVector<QQuickItem *> shown = fixture.keys();
    for (const QQuickItem *key : shown)
        QVERIFY(!key->property("pressed").toBool());
    fixture.tap(QStringLiteral("n"));
    QCOMPARE(fixture.field->text(), QStringLiteral("n"));
}

void TestKeyboardTyping::keyboardMovedByItsKey()
{
    KeyboardFixture fixture;
    QQuickWindow other;
    other.resize(800, 480);
    KeyTrap trap([&] { fixture.keyboard->initialize(&other, 2); });
    fixture.field->installEventFilter(&trap);
    fixture.show(VkbFullKeyboard);
    fixture.tap(QStringLiteral("k"));
    QVERIFY(!fixture.keyboard->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    fixture.keyboard->show(true);
    QVERIFY(fixture.keyboard->isVisible());
    QCOMPARE(fixture.keyboard->item()->window(), &other);
}

PANEL_TEST_MAIN(TestKeyboardTyping)
#include "test_keyboard_typing.moc"
