#pragma once

#include <QtQuick/QQuickItem>

namespace QSP {

/// Whether an item that has just lost the active focus lost it because it, or something around it,
/// is being taken out of its window. The operator has not left the item then, and confirmed nothing.
///
/// To be asked while the loss is told; the item still seems to be in its window at that moment.
bool losesFocusByRemoval(const QQuickItem *item);

} // namespace QSP
