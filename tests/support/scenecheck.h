#pragma once

#include <QtCore/QString>

class QObject;
class QQuickItem;

namespace SceneCheck {

/// What is wrong with an item below @p root, as the toolkit keeps its scene; empty when nothing is.
///
/// Each item is in the window of the one around it. One that is in no window has no node: nobody would delete it.
QString faultBelow(const QObject *root);
QString faultOf(QQuickItem *item);

} // namespace SceneCheck
