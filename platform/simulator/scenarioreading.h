#pragma once

#include <QtCore/QString>

#include <optional>

namespace HmiSimulator {

/// What all sections of a scenario have in common while it is read: the problem that will be told,
/// and how much text the scenario has made so far.
class ScenarioReading
{
public:
    struct Problem {
        int line;
        QString reason;
    };

    /// Of all problems the one that stands first in the text is kept.
    void refuse(int line, const QString &reason);
    /// Whether a problem in @p line would be kept.
    bool wouldKeep(int line) const { return !m_problem || line < m_problem->line; }
    const std::optional<Problem> &problem() const { return m_problem; }

    /// Sets aside room for a text; false when all texts together become too long.
    bool takeRoom(qint64 bytes);
    static constexpr qint64 MaximumText = 4LL * 1024 * 1024;

    /// @p text as it may stand in a reason: cut, and with nothing in it that a terminal would obey.
    static QString quoted(const QString &text);

private:
    std::optional<Problem> m_problem;
    qint64 m_textBytes = 0;
};

} // namespace HmiSimulator
