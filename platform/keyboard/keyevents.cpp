#include "keyevents.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace StandIn {

namespace {

struct Stroke {
    int key;
    Qt::KeyboardModifiers modifiers;
    QString text;
    bool autoRepeat;
};

void deliver(QQuickItem *target, QEvent::Type type, const Stroke &stroke)
{
    QKeyEvent event(type, stroke.key, stroke.modifiers, stroke.text, stroke.autoRepeat);
    // The window's own way up the parents trusts that the item survives an
    // event it did not accept; an item that deletes itself need not.
    QPointer<QQuickItem> item = target;
    while (item) {
        event.accept();
        QCoreApplication::sendEvent(item, &event);
        if (event.isAccepted() || !item)
            return;
        item = item->parentItem();
    }
}

void strike(QQuickWindow *window, const Stroke &stroke)
{
    if (!window)
        return;
    const QPointer<QQuickItem> target = window->activeFocusItem();
    deliver(target, QEvent::KeyPress, stroke);
    deliver(target, QEvent::KeyRelease, stroke);
}

} // namespace

void sendKey(QQuickWindow *window, int key, const QString &text, bool autoRepeat)
{
    strike(window, {key, Qt::NoModifier, text, autoRepeat});
}

void sendCharacter(QQuickWindow *window, QChar character)
{
    // Key codes of printable ASCII are the codes of the capitals.
    const int key = character.toUpper().unicode();
    const Qt::KeyboardModifiers modifiers = character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
    strike(window, {key, modifiers, QString(character), false});
}

} // namespace StandIn
