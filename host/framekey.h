#pragma once

#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

/// The key in the panel's frame, beside the glass. All of the frame is the key: gloves need the room.
///
/// It is no part of what the glass shows: whatever is open there, even a dialog that keeps all touches to itself, the
/// key works.
class FrameKey : public QObject
{
    Q_OBJECT

public:
    /// @p frame is the item that shows the frame in @p window; its property "down" is kept true while the key is down.
    FrameKey(QQuickWindow *window, QQuickItem *frame);

signals:
    void clicked();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isOnFrame(const QPointF &position) const;
    void setDown(bool down);
    bool press(const QPointF &position);
    bool release(const QPointF &position);

    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_frame;
    bool m_isDown = false;
};
