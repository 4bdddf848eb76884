#pragma once

#include <QtQuick/QQuickItem>

namespace QSP {

/// The newest root of the screen as a plain item, for those who must not know its class.
///
/// Set by the root, cleared when it dies. GUI thread only.
class ScreenRoot
{
public:
    /// The root item, or null.
    static QQuickItem *item();
    /// The column that holds the cards, or null.
    static QQuickItem *cardColumn();

    static void setItem(QQuickItem *item);
    static void setCardColumn(QQuickItem *column);
};

} // namespace QSP
