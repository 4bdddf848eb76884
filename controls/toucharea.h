#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>

class QQuickItem;

namespace QSP {

/// The room around a control in which a touch is meant for it: a finger in a
/// glove needs more than what is drawn.
///
/// An area is the control's own rectangle, grown until it measures what a finger
/// needs: evenly, or more to one side where the other has no room. It ends half
/// way to the next control, at the rectangle of one that is disabled, where an
/// ancestor clips, and at the edge of the screen, beyond which the glass is the
/// host's. What is beside two controls goes to the nearer one. The controls of a
/// popup and those beneath it are no neighbours.
///
/// Nothing of this is kept. What surrounds a control is looked up when a touch
/// lands beside it, because rows come and go, scroll, slide and change their
/// widths with the language. GUI thread only.
class TouchArea
{
public:
    /// About 9 mm on a glass of 170 dots per inch.
    static constexpr QSizeF finger{60.0, 60.0};
    /// For what stands in a row with its like: upwards and downwards only.
    static constexpr QSizeF fingerHeight{0.0, 60.0};

    /// The area of @p control, which outlives it. It does not grow in a direction in which the control
    /// measures @p wanted already.
    explicit TouchArea(const QQuickItem *control, const QSizeF &wanted = finger);
    ~TouchArea();
    Q_DISABLE_COPY(TouchArea)

    /// Whether a touch at @p point, in coordinates of the control, is meant for it.
    bool contains(const QPointF &point) const;

private:
    QSizeF missing() const;
    bool isLeftByOthers(const QPointF &point, const QSizeF &missing, const QRectF &screen,
                        const QQuickItem *layer) const;

    const QQuickItem *m_control;
    QSizeF m_wanted;
    // All areas there are form a chain: controls come and go by the dozen, and nothing may grow with them.
    TouchArea *m_newer = nullptr;
    TouchArea *m_older;
    static TouchArea *s_newest;
};

} // namespace QSP
