#pragma once

class QQuickItem;

namespace QSP {

/// Ends a press on an item that is about to leave its window: for its releaseResources(), which is called first of all.
///
/// The toolkit cancels the press too, but only when it has taken the item off the list of what is to be painted. One
/// that then fades back by itself would get on it again, and be given a node for painting in no window, which nobody
/// deletes.
void endPressOf(QQuickItem *item);

} // namespace QSP
