#pragma once

#include "conformance/report.h"

#include <optional>
#include <string>
#include <vector>

namespace Conformance {

using Fields = std::vector<std::string>;

/// Fields as one line that ends with a line feed; a field may hold any bytes.
std::string encode(const Fields &fields);
/// The fields of a line, which comes without its line feed.
Fields decode(const std::string &line);

/// A result as fields, and back; null for fields that are no result.
Fields fieldsOf(const Result &result);
std::optional<Result> resultOf(const Fields &fields);

} // namespace Conformance
