#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>

#include <optional>

/// A stored profile as "section.key" and value; nothing when it is not whole: a line that is cut off, or said twice.
std::optional<QMap<QByteArray, QByteArray>> readKeyFile(const QByteArray &contents);
