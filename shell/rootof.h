#pragma once

class QQuickItem;

namespace QSP {

class AppRootItem;
class Panel;

/// The screen that @p item is a part of. What stands on no screen, such as a card that is still being
/// made, gets the newest one; null when there is none.
///
/// A host may build the screen anew before the old one has gone. Whatever a card does later, such as
/// opening a dialog or asking another card, it does on the screen on which it stands.
AppRootItem *rootOf(const QQuickItem *item);

/// The panel as that screen sees it. What stands on no screen while there is none shares one that lives as
/// long as the application.
Panel &panelOf(const QQuickItem *item);

} // namespace QSP
