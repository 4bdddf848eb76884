#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQuick/QQuickWindow>

namespace QSP {

/// Knows whether a finger, or a mouse button, is down on a window, so that what
/// lies under it can be left in place until it is lifted.
class FingerWatch : public QObject
{
    Q_OBJECT

public:
    explicit FingerWatch(QObject *parent = nullptr);

    /// Watches that window instead of the one before; null watches nothing.
    void setWindow(QQuickWindow *window);
    bool isDown() const { return m_down; }
    /// Takes the finger for lifted, for example because the page was hidden under it. Done here when the
    /// window is hidden, or something takes the touch from it: it does not see the release then.
    void forget();

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /// Comes after the release has been delivered, so that a tap has had its effect.
    void lifted();

private:
    QPointer<QQuickWindow> m_window;
    bool m_down = false;
    bool m_isMouse = false; ///< a button of the mouse is what is down
};

} // namespace QSP
