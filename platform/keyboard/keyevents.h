#pragma once

#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QQuickWindow;
QT_END_NAMESPACE

namespace StandIn {

/// The key code by which the hide key makes itself known to the fields.
constexpr int HideKeyCode = 0x100000;

/// Sends press and release of @p key to the item of @p window that has the
/// active focus, and to its parents as long as none accepts it. Without such an
/// item the key goes nowhere. The release follows the press to the same item,
/// also when the press moved the focus, so that no other field sees half a key.
/// An item may die of the key. So may the window: the caller must check.
void sendKey(QQuickWindow *window, int key, const QString &text, bool autoRepeat);

/// Sends @p character as the key that types it, with shift for capital letters.
void sendCharacter(QQuickWindow *window, QChar character);

} // namespace StandIn
