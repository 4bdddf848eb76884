#pragma once

#include <QtCore/QtGlobal>

namespace QSP {

/// Tells in the log of a call of the service that kept the screen waiting, from the making of this to its end.
///
/// The contract promises a fraction of a millisecond. A service that does not keep to it makes a screen that hangs
/// under the finger, and without a word of it the screen would be held to be the cause. Each operation is told of
/// at most once a minute.
class ServiceStopwatch
{
public:
    /// Milliseconds of a clock that is never set.
    using Clock = qint64 (*)();

    /// Longer than this, in milliseconds, an operator sees that nothing moves.
    static constexpr qint64 limit = 200;

    /// @p operation lives as long as the process.
    explicit ServiceStopwatch(const char *operation) : m_operation(operation), m_begin(s_clock()) {}
    ~ServiceStopwatch()
    {
        const qint64 end = s_clock();
        if (Q_UNLIKELY(end - m_begin >= limit))
            tell(end);
    }
    Q_DISABLE_COPY(ServiceStopwatch)

    /// Measures by @p clock; null measures by the machine's again.
    static void setClock(Clock clock);

private:
    static qint64 machineTime();
    void tell(qint64 end) const;

    static Clock s_clock;
    const char *m_operation;
    qint64 m_begin;
};

} // namespace QSP
