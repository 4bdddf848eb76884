#include "tests/support/operator.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QTouchDevice>
#include <QtQuick/private/qquickwindow_p.h>
#include <QtTest/QtTest>

namespace Operator {

namespace {

bool isText(const QQuickItem *item)
{
    return item->inherits("QQuickText") || item->inherits("QQuickTextInput");
}

QString describe(const QQuickItem *item)
{
    QString text;
    QDebug(&text) << item;
    return text;
}

QTouchDevice *touchScreen()
{
    static QTouchDevice *device = QTest::createTouchDevice();
    return device;
}

// A visible item may still be scrolled or clipped out of sight.
bool isOnGlass(const QQuickItem *item)
{
    if (!item->isVisible() || !item->window())
        return false;
    const QRectF glass(QPointF(), QSizeF(item->window()->size()));
    return glass.contains(QPointF(centerOf(item)));
}

// Nobody waits that long for a frame but on a machine that stands still.
constexpr int longestFrame = 10000;
// Settling may change what else is painted, but not for ever; what never ends is an animation.
constexpr int mostFramesToSettle = 10;

bool hasToPaint(QQuickWindow *window)
{
    if (!window->isExposed())
        return false;
    const QQuickWindowPrivate *scene = QQuickWindowPrivate::get(window);
    return scene->dirtyItemList != nullptr || !scene->itemsToPolish.isEmpty() || scene->updateRequestPending;
}

} // namespace

QPoint centerOf(const QQuickItem *item)
{
    return item->mapToScene(QPointF(item->width() / 2.0, item->height() / 2.0)).toPoint();
}

void tap(QQuickItem *item)
{
    QVERIFY2(item, "there is no such item to tap");
    QVERIFY2(isOnGlass(item), qPrintable(QStringLiteral("not on the glass: ") + describe(item)));
    tap(item->window(), centerOf(item));
}

void tap(QQuickWindow *window, const QPoint &point)
{
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, point);
    QCoreApplication::processEvents();
}

void touch(QQuickItem *item)
{
    QVERIFY2(item, "there is no such item to touch");
    QVERIFY2(isOnGlass(item), qPrintable(QStringLiteral("not on the glass: ") + describe(item)));
    QQuickWindow *window = item->window();
    const QPoint point = centerOf(item);
    QTest::touchEvent(window, touchScreen()).press(0, point, window);
    QTest::touchEvent(window, touchScreen()).release(0, point, window);
    QCoreApplication::processEvents();
}

void press(QQuickItem *item)
{
    QVERIFY2(item && isOnGlass(item), "there is no such item to press");
    QTest::mousePress(item->window(), Qt::LeftButton, Qt::NoModifier, centerOf(item));
}

void release(QQuickItem *item)
{
    QVERIFY2(item && item->window(), "there is no such item to release");
    QTest::mouseRelease(item->window(), Qt::LeftButton, Qt::NoModifier, centerOf(item));
    QCoreApplication::processEvents();
}

void drag(QQuickWindow *window, const QPoint &from, const QPoint &to, int steps)
{
    // The pace of a hand. What scrolls works with the time that the events tell, so nobody has to wait for it.
    constexpr int millisecondsAStep = 16;
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from);
    for (int i = 1; i <= steps; ++i) {
        const QPoint point = from + (to - from) * i / steps;
        QMouseEvent move(QEvent::MouseMove, point, window->mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QTest::lastMouseTimestamp += millisecondsAStep;
        move.setTimestamp(static_cast<ulong>(QTest::lastMouseTimestamp));
        QCoreApplication::sendEvent(window, &move);
        QCoreApplication::processEvents();
    }
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, to);
    QCoreApplication::processEvents();
}

void type(QQuickWindow *window, const QString &text)
{
    for (const QChar character : text)
        QTest::keyClick(window, character.toLatin1());
}

void key(QQuickWindow *window, int key)
{
    // The test library stops at codes that it knows no text for, such as that of the keyboard's hide key.
    if (key >= 0x100000 && key < Qt::Key_Escape)
        QTest::sendKeyEvent(QTest::Click, window, static_cast<Qt::Key>(key), QString(), Qt::NoModifier);
    else
        QTest::keyClick(window, static_cast<Qt::Key>(key));
}

QVector<QQuickItem *> items(QQuickItem *root, const std::function<bool(QQuickItem *)> &wanted)
{
    QVector<QQuickItem *> found;
    if (!root)
        return found;
    if (wanted(root))
        found << root;
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children)
        found << items(child, wanted);
    return found;
}

QVector<QQuickItem *> allByClass(QQuickItem *root, const char *className)
{
    return items(root,
                 [className](QQuickItem *item) { return item->isVisible() && item->inherits(className); });
}

QQuickItem *byClass(QQuickItem *root, const char *className)
{
    return allByClass(root, className).value(0);
}

QQuickItem *byText(QQuickItem *root, const QString &text)
{
    return items(root,
                 [&text](QQuickItem *item) {
                     return item->isVisible() && isText(item) && item->property("text").toString() == text;
                 })
        .value(0);
}

QQuickItem *byName(QQuickItem *root, const QString &objectName)
{
    return items(root,
                 [&objectName](QQuickItem *item) {
                     return item->isVisible() && item->objectName() == objectName;
                 })
        .value(0);
}

QStringList visibleTexts(QQuickItem *root)
{
    QStringList texts;
    const auto found = items(root, [](QQuickItem *item) { return item->isVisible() && isText(item); });
    for (const QQuickItem *item : found) {
        const QString text = item->property("text").toString();
        if (!text.isEmpty())
            texts << text;
    }
    return texts;
}

QQuickItem *ancestorOf(QQuickItem *item, const char *className)
{
    while (item && !item->inherits(className))
        item = item->parentItem();
    return item;
}

void show(QQuickWindow *window)
{
    window->show();
    window->requestActivate();
    QVERIFY2(QTest::qWaitForWindowExposed(window), "the window does not appear");
    QVERIFY2(QTest::qWaitForWindowActive(window), "the window does not take the keys");
}

void awaitFrame(QQuickWindow *window)
{
    QSignalSpy painted(window, &QQuickWindow::frameSwapped);
    window->update();
    QVERIFY2(painted.wait(longestFrame), "the window is not painted");
}

QImage picture(QQuickWindow *window)
{
    awaitFrame(window);
    return window->screen()->grabWindow(window->winId()).toImage();
}

void settle(int milliseconds)
{
    QTest::qWait(milliseconds);
    QVector<QPointer<QQuickWindow>> windows;
    const QWindowList all = QGuiApplication::topLevelWindows();
    for (QWindow *window : all)
        windows << qobject_cast<QQuickWindow *>(window);
    for (const QPointer<QQuickWindow> &window : qAsConst(windows)) {
        for (int i = 0; window && i < mostFramesToSettle && hasToPaint(window); ++i)
            awaitFrame(window);
    }
}

} // namespace Operator
