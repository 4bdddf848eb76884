#include "host/tour/visitor.h"

#include "host/glass/glass.h"
#include "host/glass/sight.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>

namespace {

constexpr int longestWait = 5000;

} // namespace

QString Visitor::said(const char *context, const char *english)
{
    return QCoreApplication::translate(context, english);
}

QQuickItem *Visitor::buttonOf(const QString &text) const
{
    const auto items = Sight::visibleByText(glass(), text);
    for (QQuickItem *item : items) {
        if (QQuickItem *button = Sight::ancestorOf(item, "QQuickAbstractButton"))
            return button;
    }
    return nullptr;
}

bool Visitor::sees(const QString &text) const
{
    return Sight::byText(glass(), text) != nullptr;
}

bool Visitor::seesButton(const QString &text) const
{
    return buttonOf(text) != nullptr;
}

bool Visitor::waitFor(const std::function<bool()> &condition) const
{
    QElapsedTimer waited;
    waited.start();
    while (!condition()) {
        if (waited.elapsed() > longestWait)
            return false;
        pause(20);
    }
    return true;
}

void Visitor::waitFor(const QString &text)
{
    if (!waitFor([&] { return sees(text); }))
        complain(QStringLiteral("\"%1\" did not appear").arg(text));
}

void Visitor::waitForEither(const QString &one, const QString &other)
{
    if (!waitFor([&] { return sees(one) || sees(other); }))
        complain(QStringLiteral("neither \"%1\" nor \"%2\" appeared").arg(one, other));
}

void Visitor::waitUntilEnabled(const QString &text)
{
    const auto isEnabled = [&] {
        const QQuickItem *button = buttonOf(text);
        return button && button->isEnabled();
    };
    if (!waitFor(isEnabled))
        complain(QStringLiteral("\"%1\" cannot be tapped").arg(text));
}

void Visitor::waitUntilGone(const QString &text)
{
    if (!waitFor([&] { return !sees(text); }))
        complain(QStringLiteral("\"%1\" did not go").arg(text));
}

void Visitor::waitForProperty(const char *className, const char *property)
{
    const auto isReady = [&] {
        const QQuickItem *item = itemOf(className, property);
        return item && item->isVisible() && item->isEnabled();
    };
    if (!waitFor(isReady))
        complain(
            QStringLiteral("%1.%2 cannot be tapped").arg(QLatin1String(className), QLatin1String(property)));
}

void Visitor::tapText(const QString &text)
{
    QQuickItem *button = buttonOf(text);
    tap(button ? button : Sight::byText(glass(), text), text);
}

void Visitor::tapClass(const char *className, int index, const char *within)
{
    QQuickItem *below = within ? Sight::byClass(glass(), within) : glass();
    const auto items = Sight::visibleByClass(below, className);
    tap(items.value(index), QStringLiteral("%1 %2").arg(QLatin1String(className)).arg(index + 1));
}

void Visitor::tapName(const QString &objectName)
{
    tap(Sight::byName(glass(), objectName), objectName);
}

QQuickItem *Visitor::itemOf(const char *className, const char *property) const
{
    const QQuickItem *owner = Sight::byClass(glass(), className);
    return owner ? owner->property(property).value<QQuickItem *>() : nullptr;
}

void Visitor::tapProperty(const char *className, const char *property)
{
    tap(itemOf(className, property),
        QStringLiteral("%1.%2").arg(QLatin1String(className), QLatin1String(property)));
}

void Visitor::tapAt(const QPoint &point)
{
    // Two quick taps at one place would be a double click, of which buttons take the first alone.
    const qint64 least = QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50;
    const bool isSamePlace = (point - m_lastTap).manhattanLength() < 20;
    if (isSamePlace && m_sinceLastTap.isValid() && m_sinceLastTap.elapsed() < least)
        pause(static_cast<int>(least - m_sinceLastTap.elapsed()));
    m_lastTap = point;
    m_sinceLastTap.start();

    Glass::pointer(m_window, point, Qt::NoButton);
    Glass::pointer(m_window, point, Qt::LeftButton, Qt::LeftButton);
    pause(10);
    Glass::pointer(m_window, point, Qt::NoButton, Qt::LeftButton);
    pause();
}

void Visitor::typeOnScreen(const QString &characters)
{
    for (const QChar character : characters)
        tapName(QStringLiteral("vkbKey_") + character);
}

void Visitor::leaveSettings()
{
    Glass::key(m_window, true, Qt::Key_Escape, Qt::NoModifier, {});
    Glass::key(m_window, false, Qt::Key_Escape, Qt::NoModifier, {});
    pause();
}

void Visitor::tap(QQuickItem *item, const QString &name)
{
    if (!item)
        return complain(QStringLiteral("there is no \"%1\" to tap").arg(name));
    if (!item->isEnabled())
        return complain(QStringLiteral("\"%1\" is disabled").arg(name));
    // Items find their places while they are painted.
    const QPointer<QQuickItem> found(item);
    Glass::awaitFrame(m_window);
    if (!found)
        return complain(QStringLiteral("\"%1\" went before it was tapped").arg(name));
    bringIntoView(item);
    if (!Sight::isOnGlass(item))
        return complain(QStringLiteral("\"%1\" is not on the glass").arg(name));
    if (const QQuickItem *cover = Sight::coverOf(item)) {
        const QLatin1String coverName(cover->metaObject()->className());
        return complain(QStringLiteral("\"%1\" is covered by a %2").arg(name, coverName));
    }
    tapAt(Sight::centerOf(item));
}

void Visitor::bringIntoView(QQuickItem *item)
{
    const QQuickItem *pool = Sight::ancestorOf(item->parentItem(), "QQuickFlickable");
    if (!pool)
        return;
    const QRectF view = Sight::placeOf(pool);
    // Several short drags: a finger has no more room than the view.
    for (int i = 0; i < 20; ++i) {
        const QRectF place = Sight::placeOf(item);
        const qreal missing = place.top() < view.top() ? place.top() - view.top()
                                                       : qMax<qreal>(0, place.bottom() - view.bottom());
        if (qAbs(missing) < 1)
            return;
        const int room = qRound(view.height() / 2);
        // Beyond the distance at which a touch becomes a drag, or nothing moves.
        const int distance = qBound(-room, qRound(missing) + (missing > 0 ? 20 : -20), room);
        // At the left edge, where no button or slider is.
        const QPoint from(qRound(view.left()) + 4, qRound(view.center().y()) + distance / 2);
        drag(from, from - QPoint(0, distance));
    }
}

void Visitor::drag(const QPoint &from, const QPoint &to)
{
    constexpr int moves = 8;
    Glass::pointer(m_window, from, Qt::NoButton);
    Glass::pointer(m_window, from, Qt::LeftButton, Qt::LeftButton);
    for (int i = 1; i <= moves; ++i) {
        pause(10);
        Glass::pointer(m_window, from + (to - from) * i / moves, Qt::LeftButton);
    }
    // A finger that rests before it is lifted does not fling the page.
    pause(120);
    Glass::pointer(m_window, to, Qt::LeftButton);
    Glass::pointer(m_window, to, Qt::NoButton, Qt::LeftButton);
    pause();
}

void Visitor::pause(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

QStringList Visitor::takeProblems()
{
    QStringList problems;
    problems.swap(m_problems);
    return problems;
}
