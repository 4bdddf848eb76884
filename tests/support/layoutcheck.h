#pragma once

#include <QtCore/QStringList>
#include <QtQuick/QQuickItem>

/// Finds what no font difference can excuse: texts that are cut off, lie outside
/// their card or over another text.
namespace LayoutCheck {

/// One line for each fault among the texts that are visible below @p glass (a
/// window's content item, popups included); empty when all is well.
QStringList faults(QQuickItem *glass);

} // namespace LayoutCheck
