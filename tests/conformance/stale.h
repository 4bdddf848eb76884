#pragma once

namespace Mutants {

/// A value that is seen once more after it has changed.
template <class Value> class Stale
{
public:
    /// The next look still sees @p value.
    void arm(Value value)
    {
        m_value = value;
        m_isArmed = true;
    }
    Value look(Value current)
    {
        const bool isStale = m_isArmed;
        m_isArmed = false;
        return isStale ? m_value : current;
    }

private:
    Value m_value{};
    bool m_isArmed = false;
};

} // namespace Mutants
