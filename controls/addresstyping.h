#pragma once

#include <QtCore/QObject>

#include <array>
#include <bitset>

class QKeyEvent;
class QQuickTextInput;

namespace QSP {

/// Lets an operator type an address into its four boxes in one go.
///
/// A dot, or a digit that a box has no room for, moves on to the next box, whose content the next digit
/// replaces; backspace in an empty box moves back; Tab goes either way. Escape and the hide key of the
/// on-screen keyboard take back every box that was reached so since the operator last aimed at one.
class AddressTyping : public QObject
{
    Q_OBJECT

public:
    using Boxes = std::array<QQuickTextInput *, 4>;

    /// The boxes must live as long as @p parent. They come from a document that keeps the text from before
    /// a box was entered in the box's property `oldInputText`.
    AddressTyping(const Boxes &boxes, QObject *parent);

    /// Whether the focus is on its way from one box to another because of a key.
    bool isMoving() const { return m_isMoving; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool keyPressed(size_t box, QKeyEvent *key);
    bool hasRoomFor(size_t box, const QString &digit) const;
    void aimAt(size_t box);
    void moveTo(size_t box);
    void takeBackAllBut(size_t box);

    Boxes m_boxes;
    std::bitset<4> m_reached;
    bool m_isMoving = false;
};

} // namespace QSP
