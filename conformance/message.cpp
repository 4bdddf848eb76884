#include "conformance/message.h"

namespace Conformance {

namespace {

constexpr char Separator = '\t';
constexpr char Escape = '\\';

// Group, name, adapter, verdict and the number of findings.
constexpr std::size_t HeadFields = 5;
constexpr std::size_t FindingFields = 4;

} // namespace

std::string encode(const Fields &fields)
{
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            line += Separator;
        for (const char character : fields[i]) {
            if (character == '\n')
                line += "\\n";
            else if (character == Separator)
                line += "\\t";
            else if (character == Escape)
                line += "\\\\";
            else
                line += character;
        }
    }
    return line + '\n';
}

Fields decode(const std::string &line)
{
    Fields fields(1);
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == Separator) {
            fields.emplace_back();
        } else if (line[i] == Escape && i + 1 < line.size()) {
            const char code = line[++i];
            fields.back() += code == 'n' ? '\n' : code == 't' ? Separator : code;
        } else {
            fields.back() += line[i];
        }
    }
    return fields;
}

Fields fieldsOf(const Result &result)
{
    Fields fields = {result.group, result.name, result.adapter,
                     std::to_string(static_cast<int>(result.verdict)),
                     std::to_string(result.findings.size())};
    for (const Finding &finding : result.findings) {
        for (const std::string &field :
             {finding.operation, finding.adapter, finding.expectation, finding.answer})
            fields.push_back(field);
    }
    fields.insert(fields.end(), result.notes.begin(), result.notes.end());
    return fields;
}

std::optional<Result> resultOf(const Fields &fields)
{
    if (fields.size() < HeadFields)
        return std::nullopt;
    Result result;
    result.group = fields[0];
    result.name = fields[1];
    result.adapter = fields[2];
    result.verdict = static_cast<Verdict>(std::stoi(fields[3]));
    const std::size_t count = std::stoul(fields[4]);
    if (fields.size() < HeadFields + count * FindingFields)
        return std::nullopt;
    auto field = fields.begin() + HeadFields;
    for (std::size_t i = 0; i < count; ++i, field += FindingFields)
        result.findings.push_back({field[0], field[1], field[2], field[3]});
    result.notes.assign(field, fields.end());
    return result;
}

} // namespace Conformance
