#pragma once

#include "linux/snapshot.h"

#include <QtCore/QDeadlineTimer>

namespace HmiLinux {

/// Addresses on their way from the operator, who changes one after the other: on the way from one network to another
/// they do not fit each other. What does not fit yet is kept here, for as long as an operator types, and never
/// reaches the daemon; with what comes next it may fit.
class AddressDraft
{
public:
    /// The stored addresses with what was drafted and what @p wish brings in their place.
    Addresses over(const Addresses &stored, const Wish &wish) const;
    /// Keeps of what @p wish brings all that may still fit something: @p whole is what does not fit.
    void keep(const Wish &wish, const Addresses &whole);
    void forget();

private:
    bool isAlive() const { return !m_end.hasExpired(); }

    Wish m_kept;
    QDeadlineTimer m_end{0};
};

} // namespace HmiLinux
