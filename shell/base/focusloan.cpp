#include "shell/base/focusloan.h"

#include "shell/base/focusscope.h"

#include <QtQuick/QQuickWindow>

namespace QSP {

namespace {

// Who has the active focus of the item's window, or gets it when the window becomes active again.
QQuickItem *focusedBeside(const QQuickItem *item)
{
    QQuickItem *focused = item->window() ? item->window()->contentItem() : nullptr;
    while (focused && focused->isFocusScope() && focused->scopedFocusItem())
        focused = focused->scopedFocusItem();
    return focused;
}

} // namespace

bool FocusLoan::isMine(const QQuickItem *item) const
{
    return item && (item == m_root || m_root->isAncestorOf(item));
}

void FocusLoan::begin()
{
    QQuickItem *focused = focusedBeside(m_root);
    // What lies around the screen has the focus for whatever lies in it.
    const bool isLender = focused && !isMine(focused) && !focused->isAncestorOf(m_root);
    m_lender = isLender ? focused : nullptr;
}

void FocusLoan::end()
{
    drop();
    const QQuickItem *focused = focusedBeside(m_root);
    QQuickItem *lender = m_lender;
    const bool isReady =
        lender && lender->window() == m_root->window() && lender->isVisible() && lender->isEnabled();
    if (isReady && (!focused || focused->isAncestorOf(m_root)))
        lender->forceActiveFocus();
}

void FocusLoan::drop()
{
    // The scope may not be active itself: what has the focus in it would get the active focus one day.
    const QQuickItem *scope = focusScopeOf(m_root);
    QQuickItem *focused = scope ? scope->scopedFocusItem() : nullptr;
    if (isMine(focused))
        focused->setFocus(false);
}

} // namespace QSP
