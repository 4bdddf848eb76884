#pragma once

#include <QtQuick/QQuickWindow>

/// Saves what @p window shows once it has been painted, in the format that the name of @p file ends with.
/// False when that fails; @p error then says why.
bool savePicture(QQuickWindow *window, const QString &file, QString *error);
