#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QPointer>
#include <QtQuick/private/qquickrectangle_p.h>
#include <vector>

#include "keyitem.h"

namespace StandIn {

/// The keyboard itself: the panel with the keys of one page, and the fingers on them.
///
/// Characters, backspace, clear, shift and the page keys act when they are
/// touched, so that quick and overlapping taps come out in the order of the
/// touches. Enter and hide end the entry, so they act when the finger is lifted
/// from them; sliding off takes them back.
class KeyboardItem : public QQuickRectangle
{
    Q_OBJECT

public:
    explicit KeyboardItem(QQuickItem *parent = nullptr);

    /// The height that the keyboard takes of a screen of @p size. It is the same
    /// for all layouts: the screen makes room when the keyboard appears, and the
    /// layout may be chosen after that.
    static qreal heightFor(const QSizeF &size);

    /// Unknown layouts are ignored. A change begins with letters, shift off.
    void setLayoutType(VkbLayoutType type);

    /// Back to letters with shift off, no key pressed.
    void reset();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void touchEvent(QTouchEvent *event) override;
    void touchUngrabEvent() override;
    void timerEvent(QTimerEvent *event) override;

private:
    /// A finger (or the mouse) and the key that it was put down on.
    struct Contact {
        int id;
        KeyItem *key;
        bool inside;
    };

    void showPage(bool symbols);
    void arrange();
    KeyItem *keyAt(const QPointF &position) const;

    void contactPressed(int id, const QPointF &position);
    void contactMoved(int id, const QPointF &position);
    void contactReleased(int id, const QPointF &position);
    void dropContacts();
    void updatePressed(KeyItem *key);
    std::vector<Contact>::iterator findContact(int id);

    void act(const KeySpec &spec);
    void typeCharacter(QChar character);
    void pressShift();
    void releaseShift();
    void setShift(ShiftState shift);
    bool isShiftHeld() const;
    void startRepeat(int id);
    void stopRepeat();

    std::vector<KeyItem *> m_keys; // of every page ever shown; the surplus is hidden
    std::vector<Contact> m_contacts;
    const KeyPage *m_page = nullptr;
    QQuickRectangle *m_edge;
    QPointer<QQuickItem> m_repeatTarget;
    QBasicTimer m_repeatTimer;
    int m_repeatContact = 0;
    VkbLayoutType m_type = VkbFullKeyboard;
    ShiftState m_shift = ShiftState::Off;
    bool m_shiftUsedWhileHeld = false;
};

} // namespace StandIn
