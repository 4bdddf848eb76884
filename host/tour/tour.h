#pragma once

#include "host/options.h"

#include <QtQuick/QQuickWindow>

/// Walks the whole screen and takes a numbered picture at every stop.
///
/// @p window shows the operator's page, @p options are those of the host. Returns true when every stop was
/// reached, every picture was saved to the directory of the tour (made if need be; the
/// pictures of an earlier tour go) and no warning came in this process since
/// MessageWatch was installed. What went wrong is said on stderr.
bool walkTour(QQuickWindow *window, const Options &options);
