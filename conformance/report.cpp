#include "conformance/report.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace Conformance {

namespace {

struct Words {
    Verdict verdict;
    const char *mark;    ///< before a result
    const char *counted; ///< after a number of results
};

constexpr std::array<Words, 5> AllWords = {{
    {Verdict::Passed, "pass", "passed"},
    {Verdict::CannotComply, "cannot comply", "cannot comply"},
    {Verdict::Warned, "WARNING", "with a warning"},
    {Verdict::Failed, "FAILURE", "failed"},
    {Verdict::Skipped, "skipped", "skipped"},
}};

const char *markOf(Verdict verdict)
{
    for (const Words &words : AllWords) {
        if (words.verdict == verdict)
            return words.mark;
    }
    return "";
}

/// The finding in one line: "setDns(LAN0): expected ..., answered ...".
std::string lineOf(const Finding &finding)
{
    std::string line = finding.operation;
    if (!finding.adapter.empty())
        line += '(' + finding.adapter + ')';
    line += ": expected: " + finding.expectation;
    if (!finding.answer.empty())
        line += "; found: " + finding.answer;
    return line;
}

/// What answers contain is the library's business: one line stays one line, and is UTF-8 that XML can hold.
std::string printable(const std::string &text)
{
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= 0x20 && byte < 0x7F) {
            result += character;
            continue;
        }
        constexpr char Digits[] = "0123456789ABCDEF";
        result += "\\x";
        result += Digits[byte >> 4];
        result += Digits[byte & 0xF];
    }
    return result;
}

std::string escaped(const std::string &text)
{
    std::string result;
    for (const char character : printable(text)) {
        switch (character) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += character;
        }
    }
    return result;
}

std::vector<std::string> linesOf(const Result &result)
{
    std::vector<std::string> lines;
    for (const Finding &finding : result.findings)
        lines.push_back(printable(lineOf(finding)));
    for (const std::string &note : result.notes)
        lines.push_back(printable(note));
    return lines;
}

void writeElement(std::ostream &out, const char *element, const char *attributes,
                  const std::vector<std::string> &lines)
{
    out << "    <" << element << attributes << '>';
    const char *separator = "";
    for (const std::string &line : lines) {
        out << separator << escaped(line);
        separator = "\n";
    }
    out << "</" << element << ">\n";
}

} // namespace

bool Report::has(const std::string &title) const
{
    return std::any_of(m_results.begin(), m_results.end(),
                       [&title](const Result &result) { return result.title() == title; });
}

int Report::count(Verdict verdict) const
{
    return static_cast<int>(
        std::count_if(m_results.begin(), m_results.end(),
                      [verdict](const Result &result) { return result.verdict == verdict; }));
}

void Report::print(std::ostream &out, const Result &result)
{
    constexpr std::size_t Column = 15;
    std::string mark = markOf(result.verdict);
    mark.resize(Column, ' ');
    out << mark << printable(result.title()) << '\n';
    for (const std::string &line : linesOf(result))
        out << std::string(Column, ' ') << line << '\n';
}

void Report::printSummary(std::ostream &out) const
{
    out << m_subject << ": " << m_results.size() << " results";
    const char *separator = ": ";
    for (const Words &words : AllWords) {
        if (count(words.verdict) == 0)
            continue;
        out << separator << count(words.verdict) << ' ' << words.counted;
        separator = ", ";
    }
    out << '\n';
}

void Report::writeTap(std::ostream &out) const
{
    out << "TAP version 13\n1.." << m_results.size() << '\n';
    int number = 0;
    for (const Result &result : m_results) {
        out << (result.verdict == Verdict::Failed ? "not ok " : "ok ") << ++number << " - "
            << printable(result.title());
        // Only a skipped test may carry the directive that consumers count.
        if (result.verdict == Verdict::Skipped)
            out << " # SKIP";
        else if (result.verdict != Verdict::Passed && result.verdict != Verdict::Failed)
            out << " (" << markOf(result.verdict) << ')';
        out << '\n';
        for (const std::string &line : linesOf(result))
            out << "# " << line << '\n';
    }
}

void Report::writeJunit(std::ostream &out) const
{
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<testsuite name=\"" << escaped(m_subject) << "\" tests=\"" << m_results.size() << "\" failures=\""
        << count(Verdict::Failed) << "\" skipped=\"" << count(Verdict::Skipped) << "\" errors=\"0\">\n";
    for (const Result &result : m_results) {
        out << "  <testcase classname=\"" << escaped(result.group) << "\" name=\"" << escaped(result.title())
            << "\">\n";
        std::vector<std::string> lines = linesOf(result);
        if (result.verdict == Verdict::Failed) {
            writeElement(out, "failure", " message=\"the contract is not kept\"", lines);
        } else if (result.verdict == Verdict::Skipped) {
            out << "    <skipped/>\n";
        } else if (result.verdict != Verdict::Passed || !lines.empty()) {
            lines.insert(lines.begin(), markOf(result.verdict));
            writeElement(out, "system-out", "", lines);
        }
        out << "  </testcase>\n";
    }
    out << "</testsuite>\n";
}

} // namespace Conformance
