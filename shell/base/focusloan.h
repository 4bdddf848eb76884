#pragma once

#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

namespace QSP {

/// The active focus, which the screen has only borrowed: a screen that is hidden returns it.
///
/// A hidden item that keeps the focus would take the keys from the host, and the toolkit, asked for
/// the tab stop after it, would search without end.
class FocusLoan
{
public:
    /// @p root must outlive the loan.
    explicit FocusLoan(QQuickItem *root) : m_root(root) {}

    /// The screen was shown: remembers which item of the host has the focus.
    void begin();
    /// The screen was hidden: takes the focus from whatever of it has it. The item of the host gets it back
    /// if it can be seen and operated, unless the host has given the focus to another one in the meantime.
    void end();
    /// Takes the focus away and gives it to nobody.
    void drop();

private:
    bool isMine(const QQuickItem *item) const;

    QQuickItem *m_root;
    QPointer<QQuickItem> m_lender;
};

} // namespace QSP
