#include "keyboardpopup.h"

#include <QtQuick/QQuickWindow>

#include "keyboarditem.h"

namespace StandIn {

KeyboardPopup::KeyboardPopup(QQuickWindow *window)
    : QQuickPopup(window->contentItem()), m_keyboard(new KeyboardItem)
{
    QQuickItem *content = window->contentItem();
    setObjectName(QStringLiteral("vkbPopup"));
    m_keyboard->setParent(this); // a popup does not own its content
    m_keyboard->setObjectName(QStringLiteral("vkbKeyboard"));
    setParentItem(content);
    setFocus(false);
    setClosePolicy(QQuickPopup::NoAutoClose);
    setModal(true);
    setDim(false);
    setPadding(0);
    setContentItem(m_keyboard);
    connect(content, &QQuickItem::widthChanged, this, &KeyboardPopup::fit);
    connect(content, &QQuickItem::heightChanged, this, &KeyboardPopup::fit);
    connect(window, &QWindow::widthChanged, this, &KeyboardPopup::fit);
    connect(window, &QWindow::heightChanged, this, &KeyboardPopup::fit);
    fit();
}

void KeyboardPopup::fit()
{
    if (!window())
        return;
    // The content has no size before the window was shown for the first time.
    QSizeF room = window()->contentItem()->size();
    if (room.isEmpty())
        room = window()->size();
    const qreal height = KeyboardItem::heightFor(room);
    setWidth(room.width());
    setHeight(height);
    setX(0);
    setY(room.height() - height);
}

} // namespace StandIn
