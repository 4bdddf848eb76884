#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace HmiSimulator {

/// Why a JSON text is too large to be read, and the line where it becomes so.
struct JsonExcess {
    int line;
    QString reason;
};

/// Measures @p json before anything is made of it: by its brackets and commas alone, in one walk
/// over the bytes, well formed or not. What passes takes the readers of it a fraction of a second.
std::optional<JsonExcess> excessOf(const QByteArray &json);

} // namespace HmiSimulator
