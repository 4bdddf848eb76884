#include "simulator/scenarioreading.h"

namespace HmiSimulator {

namespace {

constexpr int LongestQuote = 40;

} // namespace

void ScenarioReading::refuse(int line, const QString &reason)
{
    if (wouldKeep(line))
        m_problem = Problem{line, reason};
}

bool ScenarioReading::takeRoom(qint64 bytes)
{
    m_textBytes += bytes;
    return m_textBytes <= MaximumText;
}

QString ScenarioReading::quoted(const QString &text)
{
    QString quote = text.left(LongestQuote);
    if (quote.size() < text.size() && quote.at(quote.size() - 1).isHighSurrogate())
        quote.chop(1);
    for (QChar &character : quote) {
        if (character.category() == QChar::Other_Control || character.category() == QChar::Other_Format)
            character = QChar::ReplacementCharacter;
    }
    if (quote.size() < text.size())
        quote += QChar(0x2026);
    return '"' + quote + '"';
}

} // namespace HmiSimulator
