#include "standinkeyboard.h"

#include <QtQuick/QQuickWindow>

#include "keyboarditem.h"

namespace StandIn {

void StandInKeyboard::initialize(QQuickWindow *window, int z)
{
    if (!window)
        return;
    if (m_popup && m_popup->window() != window) {
        // Later, because one of its own keys may have led here.
        show(false);
        m_popup->deleteLater();
        m_popup.clear();
    }
    if (!m_popup) {
        m_popup = new KeyboardPopup(window);
        m_popup->keyboard()->setLayoutType(m_type);
    }
    m_popup->setZ(z);
}

QQuickPopup *StandInKeyboard::popup()
{
    return m_popup;
}

QQuickItem *StandInKeyboard::item()
{
    return m_popup ? m_popup->keyboard() : nullptr;
}

void StandInKeyboard::show(bool visible)
{
    if (!m_popup || m_popup->isVisible() == visible)
        return;
    if (visible)
        m_popup->keyboard()->reset();
    m_popup->setVisible(visible);
}

void StandInKeyboard::reserved1() {}

void StandInKeyboard::setLayoutType(VkbLayoutType type)
{
    if (!isKnownLayout(type))
        return;
    m_type = type;
    if (m_popup)
        m_popup->keyboard()->setLayoutType(type);
}

void StandInKeyboard::reserved2() {}

bool StandInKeyboard::isVisible()
{
    return m_popup && m_popup->isVisible();
}

} // namespace StandIn
