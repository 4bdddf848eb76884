#include "tests/screen/fingers.h"

#include <QtCore/QMap>

#include <iterator>

QPoint Fingers::anywhere(const QQuickWindow *window)
{
    const QSize size = window->size();
    return {choose(size.width()), choose(size.height())};
}

QPoint Fingers::anyControl(const QQuickWindow *window, QQuickItem *glass, const QQuickItem *root)
{
    // What can be tapped, rather than the air; each kind of it as often as another, however many there are. The menu
    // less often, or nobody would stay on a page.
    const auto *menu = root->property("menuBar").value<QQuickItem *>();
    const bool withMenu = choose(6) == 0;
    const QRect bounds(QPoint(), window->size());
    QMap<QByteArray, QVector<QPoint>> targets;
    const auto controls = Operator::items(glass, [](const QQuickItem *item) {
        return item->isVisible() && item->isEnabled() &&
               (item->inherits("QQuickAbstractButton") || item->inherits("QQuickTextInput") ||
                item->inherits("QQuickComboBox"));
    });
    for (const QQuickItem *control : controls) {
        const QPoint point = Operator::centerOf(control);
        if (bounds.contains(point) && (withMenu || !menu->isAncestorOf(control)))
            targets[control->metaObject()->className()] << point;
    }
    if (targets.isEmpty())
        return anywhere(window);
    const QVector<QPoint> &kind = *std::next(targets.cbegin(), choose(targets.size()));
    return kind.at(choose(kind.size()));
}

void Fingers::touch(QQuickWindow *window, const std::function<void()> &meanwhile)
{
    const QPoint point = anywhere(window);
    const bool isStill = choose(2) == 0;
    Operator::pressAt(window, point, true);
    meanwhile();
    Operator::liftAt(window, isStill ? point : anywhere(window), true);
}

void Fingers::drag(QQuickWindow *window)
{
    const QPoint from = anywhere(window);
    Operator::drag(window, from, anywhere(window), 4);
}

void Fingers::pressKeys(QQuickWindow *window)
{
    static constexpr int keys[] = {Qt::Key_0,      Qt::Key_1,      Qt::Key_9,         Qt::Key_A,
                                   Qt::Key_Period, Qt::Key_Return, Qt::Key_Tab,       Qt::Key_Clear,
                                   Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Space,
                                   Qt::Key_Up,     0x100000};
    for (int i = choose(8); i >= 0; --i)
        Operator::key(window, keys[choose(static_cast<int>(std::size(keys)))]);
}
