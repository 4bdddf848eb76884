#include "keyboard/standin.h"
#include "tests/platform/keyboardfixture.h"

#include <memory>

/// Something of the screen that lies behind the keyboard; counts what reaches it.
class Behind : public QQuickItem
{
    Q_OBJECT

public:
    Behind(QQuickItem *parent, const QSizeF &size) : QQuickItem(parent)
    {
        setSize(size);
        setAcceptedMouseButtons(Qt::AllButtons);
        setAcceptTouchEvents(true);
    }
    int presses = 0;
    int touches = 0;
    int wheels = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void touchEvent(QTouchEvent *) override { ++touches; }
    void wheelEvent(QWheelEvent *) override { ++wheels; }
};

/// What the screen relies on: loader, making ready, showing, hiding, dying windows.
class TestKeyboardContract : public PanelTest
{
    Q_OBJECT

private slots:
    void nothingBeforeInitialize();
    void nullWindowIsRefused();
    void oneKeyboardPerWindow();
    void initializeAgainChangesZ();
    void popupNeverTakesFocusOrCloses();
    void showAndHideAreIdempotent();
    void geometryIsRightWhenVisibleChangedComes();
    void modalFlagDecidesAboutTheRest_data();
    void modalFlagDecidesAboutTheRest();
    void touchesDoNotFallThrough();
    void typesIntoAModalPopup();
    void unknownLayoutIsIgnored();
    void layoutBeforeInitializeIsKept();
    void showingBeginsWithLetters();
    void panelWithoutKeyboard();
    void windowDeletedWhileShown();
    void nextWindowAfterDeletion();
    void keyboardMovesToAnotherWindow();
};

namespace {

void sendWheel(QQuickWindow *window, const QPoint &point)
{
    QWheelEvent wheel(point, point, QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(window, &wheel);
}

} // namespace

void TestKeyboardContract::nothingBeforeInitialize()
{
    QQuickWindow window;
    QVkbInterface *keyboard = QVkbPluginLoader::instance(&window)->vkb();
    QVERIFY(keyboard);
    QVERIFY(!keyboard->popup());
    QVERIFY(!keyboard->item());
    keyboard->show(true);
    QVERIFY(!keyboard->isVisible());
    keyboard->show(false);
    QVERIFY(!keyboard->isVisible());
}

void TestKeyboardContract::nullWindowIsRefused()
{
    QVkbPluginLoader *loader = QVkbPluginLoader::instance(nullptr);
    QVERIFY(loader);
    QVERIFY(loader->vkb());
    loader->vkb()->initialize(nullptr, 1);
    loader->vkb()->show(true);
    QVERIFY(!loader->vkb()->popup());
    QVERIFY(!loader->vkb()->isVisible());

    KeyboardFixture fixture;
    QQuickPopup *popup = fixture.keyboard->popup();
    fixture.keyboard->initialize(nullptr, 99);
    QCOMPARE(fixture.keyboard->popup(), popup);
    QCOMPARE(popup->z(), qreal(KeyboardFixture::PopupZ));
}

void TestKeyboardContract::oneKeyboardPerWindow()
{
    QQuickWindow one;
    QQuickWindow two;
    QCOMPARE(QVkbPluginLoader::instance(&one), QVkbPluginLoader::instance(&one));
    QVERIFY(QVkbPluginLoader::instance(&one) != QVkbPluginLoader::instance(&two));
    QCOMPARE(QVkbPluginLoader::instance(&one)->vkb(), QVkbPluginLoader::instance(&one)->vkb());
    QVERIFY(QVkbPluginLoader::instance(&one)->vkb() != QVkbPluginLoader::instance(&two)->vkb());
}

void TestKeyboardContract::initializeAgainChangesZ()
{
    KeyboardFixture fixture;
    QQuickPopup *popup = fixture.keyboard->popup();
    QQuickItem *item = fixture.keyboard->item();
    QVERIFY(popup && item);
    QCOMPARE(popup->z(), 7.0);
    fixture.keyboard->initialize(&fixture.window, 31);
    QCOMPARE(fixture.keyboard->popup(), popup);
    QCOMPARE(fixture.keyboard->item(), item);
    QCOMPARE(popup->z(), 31.0);
}

void TestKeyboardContract::popupNeverTakesFocusOrCloses()
{
    KeyboardFixture fixture;
    QQuickPopup *popup = fixture.keyboard->popup();
    QVERIFY(!popup->hasFocus());
    QCOMPARE(popup->closePolicy(), QQuickPopup::NoAutoClose);
    fixture.show(VkbFullKeyboard);
    QCOMPARE(fixture.window.activeFocusItem(), fixture.field);
    QTest::mouseClick(&fixture.window, Qt::LeftButton, Qt::NoModifier, QPoint(400, 100));
    QTest::keyClick(&fixture.window, Qt::Key_Escape);
    QVERIFY(fixture.keyboard->isVisible());
    fixture.keyboard->show(false);
    QCOMPARE(fixture.window.activeFocusItem(), fixture.field);
}

void TestKeyboardContract::showAndHideAreIdempotent()
{
    KeyboardFixture fixture;
    QSignalSpy changed(fixture.keyboard->popup(), &QQuickPopup::visibleChanged);
    QVector<bool> told;
    connect(fixture.keyboard->popup(), &QQuickPopup::visibleChanged, this,
            [&] { told << fixture.keyboard->isVisible(); });
    fixture.keyboard->show(false);
    QCOMPARE(changed.count(), 0);
    for (int round = 0; round < 3; ++round) {
        told.clear();
        fixture.keyboard->show(true);
        QVERIFY(fixture.keyboard->isVisible());
        fixture.keyboard->show(true);
        QVERIFY(fixture.keyboard->isVisible());
        fixture.keyboard->show(false);
        QVERIFY(!fixture.keyboard->isVisible());
        fixture.keyboard->show(false);
        QVERIFY(!fixture.keyboard->isVisible());
        QCOMPARE(told, QVector<bool>({true, false}));
    }
    QCOMPARE(changed.count(), 6);
}

void TestKeyboardContract::geometryIsRightWhenVisibleChangedComes()
{
    KeyboardFixture fixture;
    QRectF seen;
    connect(fixture.keyboard->popup(), &QQuickPopup::visibleChanged, this, [&] {
        const QQuickItem *item = fixture.keyboard->item();
        seen = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    });
    fixture.keyboard->show(true);
    QVERIFY(seen.height() >= 200);
    QCOMPARE(seen.bottomLeft(), QPointF(0, 480));
    QCOMPARE(seen.width(), 800.0);
    // The layout is chosen after that and must not make the keyboard higher or lower.
    for (const VkbLayoutType type : {VkbAddressDigits, VkbPlainDigits, VkbFullKeyboard}) {
        fixture.keyboard->setLayoutType(type);
        QCOMPARE(fixture.keyboard->item()->height(), seen.height());
    }
}

void TestKeyboardContract::modalFlagDecidesAboutTheRest_data()
{
    QTest::addColumn<bool>("modal");
    QTest::newRow("modal") << true;
    QTest::newRow("not modal") << false;
}

void TestKeyboardContract::modalFlagDecidesAboutTheRest()
{
    QFETCH(bool, modal);
    KeyboardFixture fixture;
    Behind behind(fixture.window.contentItem(), QSizeF(800, 200));
    fixture.keyboard->popup()->setModal(modal);
    fixture.show(VkbFullKeyboard);
    QTest::mouseClick(&fixture.window, Qt::LeftButton, Qt::NoModifier, QPoint(400, 100));
    QCOMPARE(behind.presses, modal ? 0 : 1);
    fixture.tap(QStringLiteral("q"));
    QCOMPARE(fixture.field->text(), QStringLiteral("q"));
}

void TestKeyboardContract::touchesDoNotFallThrough()
{
    KeyboardFixture fixture;
    Behind behind(fixture.window.contentItem(), QSizeF(800, 480));
    fixture.show(VkbPlainDigits);
    const int y = fixture.center(QStringLiteral("5")).y();
    for (const int x : {1, 40, 400, 760, 799}) {
        QTest::mouseClick(&fixture.window, Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
        QTest::mouseClick(&fixture.window, Qt::RightButton, Qt::NoModifier, QPoint(x, y));
        fixture.touchDown(0, QPoint(x, y));
        fixture.touchUp(0, QPoint(x, y));
        sendWheel(&fixture.window, QPoint(x, y));
    }
    QCOMPARE(behind.presses, 0);
    QCOMPARE(behind.touches, 0);
    QCOMPARE(behind.wheels, 0);
    // Above the keyboard all of it arrives.
    QTest::mouseClick(&fixture.window, Qt::RightButton, Qt::NoModifier, QPoint(400, 100));
    fixture.touchDown(0, QPoint(400, 100));
    fixture.touchUp(0, QPoint(400, 100));
    sendWheel(&fixture.window, QPoint(400, 100));
    QCOMPARE(behind.presses, 1);
    QCOMPARE(behind.touches, 2);
    QCOMPARE(behind.wheels, 1);
}

void TestKeyboardContract::typesIntoAModalPopup()
{
    KeyboardFixture fixture;
    QQuickPopup editor;
    editor.setParentItem(fixture.window.contentItem());
    editor.setZ(KeyboardFixture::PopupZ);
    editor.setWidth(600);
    editor.setHeight(460); // reaches below the keyboard
    editor.setModal(true);
    editor.setFocus(true);
    editor.setClosePolicy(QQuickPopup::CloseOnPressOutside | QQuickPopup::CloseOnReleaseOutside);
    auto *field = new QQuickTextInput(editor.contentItem());
    editor.open();
    field->forceActiveFocus();
    fixture.show(VkbFullKeyboard);
    // Keys over the editor and keys beside it.
    for (const char *name : {"q", "t", "p", "backspace", "0"})
        fixture.tap(QLatin1String(name));
    fixture.click(QStringLiteral("o"));
    QVERIFY(editor.isVisible());
    QCOMPARE(fixture.window.activeFocusItem(), field);
    QCOMPARE(field->text(), QStringLiteral("qt0o"));
    fixture.keyboard->show(false);
    QCOMPARE(fixture.window.activeFocusItem(), field);
    QTest::mouseClick(&fixture.window, Qt::LeftButton, Qt::NoModifier, QPoint(700, 100));
    QVERIFY(!editor.isVisible());
}

void TestKeyboardContract::unknownLayoutIsIgnored()
{
    KeyboardFixture fixture;
    fixture.show(VkbPlainDigits);
    const QStringList digits = fixture.keyNames();
    for (const int type : {-1, 1, 3, 4, 6, 1000})
        fixture.keyboard->setLayoutType(static_cast<VkbLayoutType>(type));
    QCOMPARE(fixture.keyNames(), digits);
    fixture.keyboard->setLayoutType(VkbFullKeyboard);
    QVERIFY(fixture.keyNames() != digits);
}

void TestKeyboardContract::layoutBeforeInitializeIsKept()
{
    QQuickWindow window;
    window.resize(800, 480);
    QVkbInterface *keyboard = QVkbPluginLoader::instance(&window)->vkb();
    keyboard->setLayoutType(VkbAddressDigits);
    keyboard->initialize(&window, 1);
    keyboard->show(true);
    const auto named = [keyboard](const QString &name) {
        return Operator::items(keyboard->item(), [&name](QQuickItem *item) {
            return item->isVisible() && item->objectName() == name;
        });
    };
    QCOMPARE(named(QStringLiteral("vkbKey_.")).size(), 1);
    QCOMPARE(named(QStringLiteral("vkbKey_a")).size(), 0);
    keyboard->setLayoutType(VkbFullKeyboard);
    QCOMPARE(named(QStringLiteral("vkbKey_a")).size(), 1);
}

void TestKeyboardContract::showingBeginsWithLetters()
{
    KeyboardFixture fixture;
    fixture.show(VkbFullKeyboard);
    const QStringList letters = fixture.keyNames();
    fixture.tap(QStringLiteral("symbols"));
    QVERIFY(fixture.keyNames() != letters);
    // The same layout again, as every field asks for it, does not turn the page.
    fixture.keyboard->setLayoutType(VkbFullKeyboard);
    QVERIFY(fixture.keyNames() != letters);
    fixture.keyboard->show(false);
    fixture.keyboard->show(true);
    QCOMPARE(fixture.keyNames(), letters);

    fixture.tap(QStringLiteral("shift"));
    fixture.keyboard->show(false);
    fixture.keyboard->show(true);
    fixture.tap(QStringLiteral("a"));
    QCOMPARE(fixture.field->text(), QStringLiteral("a"));
}

void TestKeyboardContract::panelWithoutKeyboard()
{
    QQuickWindow window;
    QVkbStandInSetAvailable(false);
    QVERIFY(QVkbPluginLoader::instance(&window));
    QVERIFY(!QVkbPluginLoader::instance(&window)->vkb());
    QVkbStandInSetAvailable(true);
    QVERIFY(QVkbPluginLoader::instance(&window)->vkb());
}

void TestKeyboardContract::windowDeletedWhileShown()
{
    auto fixture = std::make_unique<KeyboardFixture>();
    fixture->show(VkbFullKeyboard);
    QVkbInterface *keyboard = fixture->keyboard;
    QPointer<QQuickPopup> popup = keyboard->popup();
    QPointer<QQuickItem> item = keyboard->item();
    fixture->touchDown(0, fixture->center(QStringLiteral("backspace")));
    fixture.reset();
    QVERIFY(!popup);
    QVERIFY(!item);
    QVERIFY(!keyboard->popup());
    QVERIFY(!keyboard->item());
    QVERIFY(!keyboard->isVisible());
    keyboard->show(true);
    keyboard->setLayoutType(VkbPlainDigits);
    keyboard->show(false);
    QVERIFY(!keyboard->isVisible());
    QCoreApplication::processEvents();
}

void TestKeyboardContract::nextWindowAfterDeletion()
{
    QVector<QVkbInterface *> used;
    for (int round = 0; round < 5; ++round) {
        KeyboardFixture fixture;
        fixture.show(VkbFullKeyboard);
        QVERIFY(fixture.keyboard->isVisible());
        fixture.tap(QStringLiteral("w"));
        QCOMPARE(fixture.field->text(), QStringLiteral("w"));
        if (!used.contains(fixture.keyboard))
            used << fixture.keyboard;
    }
    QCOMPARE(used.size(), 1); // loaders are used again, they do not pile up
}

void TestKeyboardContract::keyboardMovesToAnotherWindow()
{
    KeyboardFixture one;
    one.show(VkbFullKeyboard);
    QPointer<QQuickPopup> first = one.keyboard->popup();
    QSignalSpy changed(first, &QQuickPopup::visibleChanged);
    QQuickWindow two;
    two.resize(480, 800);
    one.keyboard->initialize(&two, 3);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!one.keyboard->isVisible());
    QVERIFY(one.keyboard->popup() != first);
    QCOMPARE(one.keyboard->item()->window(), nullptr);
    one.keyboard->show(true);
    QCOMPARE(one.keyboard->item()->window(), &two);
    QCOMPARE(one.keyboard->item()->width(), 480.0);
    QTRY_VERIFY(!first);
}

PANEL_TEST_MAIN(TestKeyboardContract)
#include "test_keyboard_contract.moc"
