#pragma once

#include "tests/screen/screenfixture.h"

#include <QtCore/QPointer>

/// Where on the glass a touch counts, control by control: those of the popup in front, else those of the page.
class TouchCheck
{
public:
    enum Side { Left, Top, Right, Bottom };

    explicit TouchCheck(const ScreenFixture &fixture);

    /// How many things are in sight that can be pressed.
    int controls() const;
    /// Areas that are too small without a reason, that overlap, or at whose edges a press goes astray.
    QStringList faults() const;

    /// The outermost point of the control's area on that side of its middle, in window coordinates.
    QPoint edgeOf(const QQuickItem *control, Side side) const;

private:
    struct Place {
        QQuickItem *item;
        QRectF drawn; // what can be seen of it, in scene coordinates
        QRectF area;  // as far as touches count, measured from the middle; of those in sight only
    };

    QQuickItem *layer() const;
    QVector<Place> places() const;
    QVector<Place> placesInSight() const;
    bool isInSight(const Place &place) const;
    QRectF bounds(const QQuickItem *item) const;
    bool takes(const QQuickItem *item, const QPointF &point) const;
    QRectF visiblePart(const QQuickItem *item) const;
    static QPoint edgeOf(const QRectF &drawn, const QRectF &area, Side side);
    QRectF measure(const QQuickItem *item, const QRectF &drawn) const;
    bool isBounded(const Place &place, Side side, const QVector<Place> &all) const;
    bool isCovered(const QPointF &point) const;
    void checkSize(const Place &place, const QVector<Place> &all, QStringList *faults) const;
    void checkOverlap(const Place &place, const Place &other, QStringList *faults) const;
    void checkPresses(const Place &place, QStringList *faults) const;
    void press(QQuickItem *item, const QPoint &point, bool byTouch, QStringList *faults) const;

    const ScreenFixture &m_fixture;
    QQuickItem *m_pool;
    mutable QPointer<QQuickItem> m_keyboard; // made once for the window
};
