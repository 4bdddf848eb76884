#include "tests/support/operator.h"

#include "host/glass/glass.h"
#include "host/glass/sight.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QTouchDevice>
#include <QtQuick/private/qquickwindow_p.h>
#include <QtTest/QtTest>

namespace Operator {

namespace {

QString describe(const QQuickItem *item)
{
    QString text;
    QDebug(&text) << item;
    return text;
}

// What keeps a finger from an item; empty when nothing does.
QString obstacleTo(const QQuickItem *item)
{
    if (!item)
        return QStringLiteral("there is no such item");
    if (!Sight::isOnGlass(item))
        return QStringLiteral("not on the glass: ") + describe(item);
    if (const QQuickItem *cover = Sight::coverOf(item))
        return describe(item) + QStringLiteral(" is covered by ") + describe(cover);
    return {};
}

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
    return Sight::centerOf(item);
}

void tap(QQuickItem *item)
{
    const QString obstacle = obstacleTo(item);
    QVERIFY2(item && obstacle.isEmpty(), qPrintable(obstacle));
    tap(item->window(), centerOf(item));
}

void tap(QQuickWindow *window, const QPoint &point)
{
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, point);
    QCoreApplication::processEvents();
}

QTouchDevice *touchScreen()
{
    static QTouchDevice *device = QTest::createTouchDevice();
    return device;
}

void touch(QQuickItem *item)
{
    const QString obstacle = obstacleTo(item);
    QVERIFY2(item && obstacle.isEmpty(), qPrintable(obstacle));
    QQuickWindow *window = item->window();
    const QPoint point = centerOf(item);
    QTest::touchEvent(window, touchScreen()).press(0, point, window);
    QTest::touchEvent(window, touchScreen()).release(0, point, window);
    QCoreApplication::processEvents();
}

void pressAt(QQuickWindow *window, const QPoint &point, bool byTouch)
{
    if (byTouch)
        QTest::touchEvent(window, touchScreen()).press(0, point, window);
    else
        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, point);
}

void slideTo(QQuickWindow *window, const QPoint &point, bool byTouch)
{
    if (byTouch) {
        QTest::touchEvent(window, touchScreen()).move(0, point, window);
        // The toolkit tells of it with the next frame.
        awaitFrame(window);
        return;
    }
    QMouseEvent move(QEvent::MouseMove, point, window->mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(window, &move);
}

void liftAt(QQuickWindow *window, const QPoint &point, bool byTouch)
{
    if (byTouch)
        QTest::touchEvent(window, touchScreen()).release(0, point, window);
    else
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, point);
    QCoreApplication::processEvents();
}

void press(QQuickItem *item)
{
    const QString obstacle = obstacleTo(item);
    QVERIFY2(item && obstacle.isEmpty(), qPrintable(obstacle));
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
    return Sight::all(root, wanted);
}

QVector<QQuickItem *> allByClass(QQuickItem *root, const char *className)
{
    return Sight::visibleByClass(root, className);
}

QQuickItem *byClass(QQuickItem *root, const char *className)
{
    return Sight::byClass(root, className);
}

QQuickItem *byText(QQuickItem *root, const QString &text)
{
    return Sight::byText(root, text);
}

QQuickItem *byName(QQuickItem *root, const QString &objectName)
{
    return Sight::byName(root, objectName);
}

QQuickItem *byIcon(QQuickItem *root, const QString &file)
{
    const auto shows = [&file](const QQuickItem *item) {
        return item->inherits("QQuickImage") &&
               item->property("source").toString().endsWith(QLatin1Char('/') + file);
    };
    return Sight::visible(root, shows).value(0);
}

QStringList visibleTexts(QQuickItem *root)
{
    QStringList texts;
    const auto found = Sight::visible(root, Sight::isText);
    for (const QQuickItem *item : found) {
        const QString text = item->property("text").toString();
        if (!text.isEmpty())
            texts << text;
    }
    return texts;
}

QQuickItem *ancestorOf(QQuickItem *item, const char *className)
{
    return Sight::ancestorOf(item, className);
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
    QVERIFY2(Glass::awaitFrame(window), "the window is not painted");
}

QImage picture(QQuickWindow *window)
{
    awaitFrame(window);
    return Glass::picture(window);
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
