#include "keyboardpopup.h"

#include <QtQuick/QQuickWindow>

#include "keyboarditem.h"

namespace StandIn {

KeyboardPopup::KeyboardPopup(QQuickWindow *window)
    : QQuickPopup(window->contentItem()), m_keyboard(new KeyboardItem)
{
    QQuickItem *content = window->contentItem();
    setObjectName(QStringLiteral("vkbPopup"));
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
    fit();
}

void KeyboardPopup::fit()
{
    const QSizeF room = parentItem() ? parentItem()->size() : QSizeF();
    const qreal height = KeyboardItem::heightFor(room);
    setWidth(room.width());
    setHeight(height);
    setX(0);
    setY(room.height() - height);
}

} // namespace StandIn
