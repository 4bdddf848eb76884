#include "simulator/jsonsize.h"

namespace HmiSimulator {

namespace {

/// A scenario has six: {"wifi": {"networks": [{"name": {"hex": ...
constexpr int MaximumDepth = 16;
/// Half as many again as the most that a scenario can have: every key of 10,000 networks.
constexpr int MaximumValues = 200000;

} // namespace

std::optional<JsonExcess> excessOf(const QByteArray &json)
{
    int line = 1;
    int depth = 0;
    int values = 0;
    bool isInText = false;
    for (int at = 0; at < json.size(); ++at) {
        const char byte = json.at(at);
        if (byte == '\n')
            ++line;
        if (isInText) {
            if (byte == '\\')
                ++at; // whatever follows does not end the text
            else if (byte == '"')
                isInText = false;
            continue;
        }
        switch (byte) {
        case '"':
            isInText = true;
            break;
        case '{':
        case '[':
            ++depth;
            ++values;
            break;
        case ',':
            ++values;
            break;
        case '}':
        case ']':
            --depth;
            break;
        default:
            break;
        }
        if (depth > MaximumDepth)
            return JsonExcess{line, QStringLiteral("is nested deeper than %1 levels").arg(MaximumDepth)};
        if (values > MaximumValues)
            return JsonExcess{line, QStringLiteral("has more than %1 values").arg(MaximumValues)};
    }
    return std::nullopt;
}

} // namespace HmiSimulator
