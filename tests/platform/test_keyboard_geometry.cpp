#include "tests/platform/keyboardfixture.h"

#include <QtCore/QDir>
#include <QtQuick/private/qquicktext_p.h>

/// Places and sizes on every screen that panels come with, and pictures of them.
class TestKeyboardGeometry : public PanelTest
{
    Q_OBJECT

private slots:
    void fitsTheScreen_data();
    void fitsTheScreen();
    void followsTheWindow();
    void leavesRoomOnALowPanel();
    void smallerThanAnyPanel();
    void pictures_data() { fitsTheScreen_data(); }
    void pictures();

private:
    static void checkPage(const KeyboardFixture &fixture, const QSize &screen);
    static void checkLabels(const KeyboardFixture &fixture);
};

namespace {

const VkbLayoutType Layouts[] = {VkbAddressDigits, VkbPlainDigits, VkbFullKeyboard};

/// Whether something is drawn in the middle of the key: a letter, or the sign of a command.
bool hasInk(const QImage &picture, const QQuickItem *key)
{
    const QPoint middle = Operator::centerOf(key);
    const int reach = int(key->height() / 2) - 8;
    const QRect area(middle - QPoint(14, reach), QSize(28, 2 * reach));
    const QColor face = picture.pixelColor(middle.x(), int(key->mapToScene(QPointF(0, 6)).y()));
    int inked = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            inked += picture.pixelColor(x, y) != face ? 1 : 0;
    }
    return inked >= 4;
}

QRectF onScene(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

} // namespace

void TestKeyboardGeometry::fitsTheScreen_data()
{
    QTest::addColumn<QSize>("screen");
    for (const QSize &size : {QSize(480, 800), QSize(600, 1024), QSize(800, 480), QSize(800, 600),
                              QSize(1024, 600), QSize(1024, 768), QSize(1280, 800)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestKeyboardGeometry::checkPage(const KeyboardFixture &fixture, const QSize &screen)
{
    const QRectF panel = onScene(fixture.keyboardItem());
    QCOMPARE(panel.left(), 0.0);
    QCOMPARE(panel.width(), qreal(screen.width()));
    QCOMPARE(panel.bottom(), qreal(screen.height()));
    QVERIFY(panel.height() <= screen.height() / 2.0);

    const QVector<QQuickItem *> keys = fixture.keys();
    QRectF hull;
    qreal area = 0;
    for (const QQuickItem *key : keys) {
        const QRectF cell = onScene(key);
        QVERIFY2(panel.contains(cell), qPrintable(key->objectName()));
        QVERIFY2(cell.height() >= 40 && cell.width() >= 40, qPrintable(key->objectName()));
        const QRectF face = onScene(key->childItems().constFirst());
        QVERIFY2(face.height() >= 40 && face.width() >= 40, qPrintable(key->objectName()));
        for (const QQuickItem *other : keys)
            QVERIFY2(other == key || onScene(other).intersected(cell).isEmpty(),
                     qPrintable(key->objectName()));
        hull |= cell;
        area += cell.width() * cell.height();
    }
    // The cells cover their hull, but for half a key at each end of the row of nine letters.
    const QQuickItem *nine = fixture.key(QStringLiteral("l"));
    const qreal open = nine ? hull.width() / 10 * nine->height() : 0;
    QVERIFY(qAbs(hull.width() * hull.height() - area - open) <= 2 * hull.height());
    QVERIFY(qAbs(hull.center().x() - panel.center().x()) <= 1.0);
}

void TestKeyboardGeometry::checkLabels(const KeyboardFixture &fixture)
{
    int labels = 0;
    const QVector<QQuickItem *> shown = Operator::allByClass(fixture.keyboardItem(), "QQuickText");
    for (QQuickItem *item : shown) {
        auto *text = static_cast<QQuickText *>(item);
        const QQuickItem *face = text->parentItem();
        QVERIFY(!text->text().isEmpty());
        QVERIFY2(text->contentWidth() + 8 <= face->width(), qPrintable(text->text()));
        QVERIFY2(text->contentHeight() <= face->height(), qPrintable(text->text()));
        ++labels;
    }
    QVERIFY(labels >= 10);
}

void TestKeyboardGeometry::fitsTheScreen()
{
    QFETCH(QSize, screen);
    KeyboardFixture fixture(screen);
    QVector<qreal> heights;
    for (const VkbLayoutType type : Layouts) {
        fixture.show(type);
        checkPage(fixture, screen);
        checkLabels(fixture);
        heights << fixture.keyboardItem()->height();
    }
    QCOMPARE(heights.count(heights.constFirst()), 3);
    fixture.tap(QStringLiteral("symbols"));
    checkPage(fixture, screen);
    checkLabels(fixture);
}

void TestKeyboardGeometry::followsTheWindow()
{
    KeyboardFixture fixture(QSize(800, 480));
    fixture.show(VkbFullKeyboard);
    for (const QSize &screen : {QSize(480, 800), QSize(1280, 800), QSize(1024, 600), QSize(800, 480)}) {
        fixture.window.resize(screen);
        QTRY_COMPARE(fixture.keyboardItem()->width(), qreal(screen.width()));
        checkPage(fixture, screen);
        fixture.field->setText(QString());
        for (const QString &name : {QStringLiteral("q"), QStringLiteral("m"), QStringLiteral(".")})
            fixture.tap(name);
        QCOMPARE(fixture.field->text(), QStringLiteral("qm."));
    }
    // Hidden too, so that the next showing is right at once.
    fixture.keyboard->show(false);
    fixture.window.resize(1024, 768);
    QTRY_COMPARE(fixture.window.contentItem()->width(), 1024.0);
    fixture.show(VkbPlainDigits);
    checkPage(fixture, QSize(1024, 768));
}

void TestKeyboardGeometry::leavesRoomOnALowPanel()
{
    KeyboardFixture fixture(QSize(480, 272));
    for (const VkbLayoutType type : Layouts) {
        fixture.show(type);
        // For a title bar and a field below it.
        QCOMPARE(onScene(fixture.keyboardItem()), QRectF(0, 84, 480, 188));
        checkLabels(fixture);
        const QVector<QQuickItem *> keys = fixture.keys();
        for (const QQuickItem *key : keys)
            QVERIFY2(key->height() >= 36 && key->width() >= 40, qPrintable(key->objectName()));
    }
    // From here on keys are as high as they are everywhere.
    fixture.window.resize(480, 322);
    QTRY_COMPARE(fixture.keyboardItem()->height(), 238.0);
}

void TestKeyboardGeometry::smallerThanAnyPanel()
{
    KeyboardFixture fixture(QSize(200, 120));
    fixture.show(VkbFullKeyboard);
    QCOMPARE(onScene(fixture.keyboardItem()), QRectF(0, 0, 200, 120));
    fixture.tap(QStringLiteral("g"));
    QCOMPARE(fixture.field->text(), QStringLiteral("g"));
    fixture.window.resize(1, 1);
    QTRY_COMPARE(fixture.keyboardItem()->width(), 1.0);
    fixture.window.resize(800, 480);
    QTRY_COMPARE(fixture.keyboardItem()->width(), 800.0);
    checkPage(fixture, QSize(800, 480));
}

void TestKeyboardGeometry::pictures()
{
    QFETCH(QSize, screen);
    QVERIFY(QDir().mkpath(QStringLiteral("pictures")));
    KeyboardFixture fixture(screen);
    QVERIFY(QTest::qWaitForWindowExposed(&fixture.window));
    const auto save = [&](const QString &what) {
        const QImage picture = Operator::picture(&fixture.window);
        QCOMPARE(picture.size(), screen);
        // The panel's own colour in its corner, and white keys: it was drawn, and where it should be.
        QCOMPARE(picture.pixelColor(1, screen.height() - 2), QColor(230, 231, 233));
        const QQuickItem *zero = fixture.key(QStringLiteral("0"));
        QCOMPARE(picture.pixelColor(zero->mapToScene(QPointF(zero->width() / 2, 6)).toPoint()),
                 QColor(Qt::white));
        const QVector<QQuickItem *> shown = fixture.keys();
        for (const QQuickItem *key : shown)
            QVERIFY2(hasInk(picture, key), qPrintable(key->objectName()));
        const QString name = QStringLiteral("pictures/keyboard-%1x%2-%3.png");
        QVERIFY(picture.save(name.arg(screen.width()).arg(screen.height()).arg(what)));
    };
    fixture.show(VkbAddressDigits);
    save(QStringLiteral("address"));
    fixture.show(VkbPlainDigits);
    save(QStringLiteral("digits"));
    fixture.show(VkbFullKeyboard);
    save(QStringLiteral("full"));
    fixture.tap(QStringLiteral("shift"));
    const QPoint held = fixture.center(QStringLiteral("g"));
    fixture.touchDown(0, held);
    save(QStringLiteral("pressed"));
    fixture.touchUp(0, held);
    fixture.tap(QStringLiteral("shift"));
    fixture.tap(QStringLiteral("shift"));
    save(QStringLiteral("locked"));
    fixture.tap(QStringLiteral("symbols"));
    save(QStringLiteral("symbols"));
}

PANEL_TEST_MAIN(TestKeyboardGeometry)
#include "test_keyboard_geometry.moc"
