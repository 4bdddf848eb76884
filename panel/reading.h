#pragma once

#include <optional>

namespace QSP {

/// A value of the service: asked for when it is first needed, then not again until it is forgotten.
///
/// Each answer may take its time, and several that show one moment are to show the same. When to forget is
/// said by whoever knows that a new moment has come: a tick, an opening, a report, a write.
template <class Value> class Reading
{
public:
    template <class Ask> const Value &get(Ask ask) const
    {
        if (!m_value)
            m_value = ask();
        return *m_value;
    }

    /// Whether this is what the service said.
    bool is(const Value &value) const { return m_value == value; }
    void forget() { m_value.reset(); }

private:
    mutable std::optional<Value> m_value;
};

} // namespace QSP
