#include "shell/base/vkbmanager.h"

#include "shell/base/globalinfo.h"
#include "shell/base/logging.h"
#include "shell/base/screenroot.h"

#include <QtGui/QGuiApplication>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

namespace QSP {

void VkbManager::loadPlugin()
{
    QQuickItem *root = ScreenRoot::item();
    QQuickWindow *window = root ? root->window() : nullptr;
    QVkbInterface *keyboard = window ? QVkbPluginLoader::instance(window)->vkb() : nullptr;
    qCDebug(logKeyboard, keyboard ? "loaded" : "there is none");
    if (!keyboard)
        return;
    keyboard->initialize(window, GlobalInfo::instance().rootPopupZ());
    m_keyboard = keyboard;
    m_window = window;
}

bool VkbManager::loadOnce()
{
    static bool _loadTried = false;

    const QQuickItem *root = ScreenRoot::item();
    const QQuickWindow *window = root ? root->window() : nullptr;
    // A screen that was just built has no window yet, while an older one may still be in use.
    if (isLoaded() && (!window || window == m_window))
        return true;
    // A keyboard goes with its window; a screen built anew in another one needs it once more.
    const bool anotherWindow = m_keyboard != nullptr;
    if (_loadTried && !anotherWindow)
        return false;
    m_keyboard = nullptr;
    loadPlugin();
    _loadTried = true;
    return m_keyboard != nullptr;
}

void VkbManager::showVkb(bool show)
{
    if (!show && isLoaded())
        endEdit();
    else if (show && loadOnce())
        this->show();
}

void VkbManager::show()
{
    QQuickPopup *popup = m_keyboard->popup();
    if (!popup)
        return;
    if (!m_visibleConnection) {
        m_visibleConnection = connect(popup, &QQuickPopup::visibleChanged, this, &VkbManager::visibleChanged);
        m_slideConnection =
            connect(popup, &QQuickPopup::visibleChanged, this, &VkbManager::onVkbVisibleChange);
        m_savedModal = popup->isModal();
        popup->setModal(false);
    }
    qCDebug(logKeyboard, "to be shown");
    m_keyboard->show(true);
}

void VkbManager::endEdit()
{
    takeFocus();
    if (isLoaded())
        m_keyboard->show(false);
}

void VkbManager::takeFocus() const
{
    QQuickItem *root = ScreenRoot::item();
    const QQuickWindow *window = root ? root->window() : nullptr;
    QQuickItem *focused = window ? window->activeFocusItem() : nullptr;
    // A field may stand beside the newest screen: in a popup, or on an older screen.
    if (m_field && m_field->hasActiveFocus())
        focused = m_field;
    // Nothing of the screen has it when the host took it, or the toolkit, which does so before it takes the
    // screen out of its window: an item that gets the focus then keeps it, in a window that it is not in.
    const bool isOfScreen = focused && (focused == m_field || root->isAncestorOf(focused));
    if (!isOfScreen)
        return;
    if (window && focused->window() == window && root->isVisible() && root->isEnabled())
        root->forceActiveFocus();
    else
        focused->setFocus(false);
}

bool VkbManager::isVisible() const
{
    return isLoaded() && m_keyboard->isVisible();
}

void VkbManager::setLayoutType(VkbLayoutType type) const
{
    qCDebug(logKeyboard, "layout %d", static_cast<int>(type));
    if (isLoaded())
        m_keyboard->setLayoutType(type);
}

qreal VkbManager::getHeight() const
{
    QQuickItem *item = isLoaded() ? m_keyboard->item() : nullptr;
    return item ? item->height() : 0.0;
}

void VkbManager::fieldFocusChanged(QQuickItem *field, bool focused)
{
    qCDebug(logKeyboard, "edit %s in %s", focused ? "begins" : "ends", field->metaObject()->className());
    if (focused) {
        m_field = field;
        // Going from field to field while the keyboard is up brings no visible change to react to.
        if (isVisible())
            slideColumn();
        return;
    }
    if (m_field && m_field != field && m_field->hasActiveFocus())
        return;
    m_field = nullptr;
    showVkb(false);
}

void VkbManager::onVkbVisibleChange()
{
    qCDebug(logKeyboard, isVisible() ? "shown" : "hidden");
    if (isVisible()) {
        slideColumn();
        return;
    }
    disconnect(m_visibleConnection);
    disconnect(m_slideConnection);
    if (QQuickPopup *popup = m_keyboard ? m_keyboard->popup() : nullptr)
        popup->setModal(m_savedModal);
    if (QQuickItem *column = ScreenRoot::cardColumn())
        column->setY(0.0);
}

void VkbManager::slideColumn()
{
    QQuickItem *root = ScreenRoot::item();
    QQuickItem *column = ScreenRoot::cardColumn();
    QQuickItem *keyboard = m_keyboard->item();
    auto *focused = qobject_cast<QQuickItem *>(QGuiApplication::focusObject());
    if (!root || !column || !keyboard || !focused)
        return;
    // Where the field would be with the column at rest; only what is on the column moves with it.
    const qreal slid = column->isAncestorOf(focused) ? column->y() : 0.0;
    const qreal bottom = focused->mapToItem(root, QPointF(0.0, focused->height())).y() - slid;
    const qreal top = keyboard->mapToItem(root, QPointF()).y();
    column->setY(bottom > top ? top - bottom : 0.0);
}

} // namespace QSP
