#pragma once

#include <QtQuick/QQuickItem>

namespace QSP {

/// The nearest focus scope around @p item, or null outside all of them.
QQuickItem *focusScopeOf(const QQuickItem *item);

} // namespace QSP
