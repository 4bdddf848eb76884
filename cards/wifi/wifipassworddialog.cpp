#include "cards/wifi/wifipassworddialog.h"

#include "cards/wifi/wifipasswordbody.h"
#include "controls/dialog.h"
#include "controls/dialogsize.h"
#include "controls/modalshade.h"
#include "panel/ssid.h"
#include "shell/approotitem.h"
#include "shell/base/globalinfo.h"
#include "shell/base/vkbmanager.h"
#include "shell/rootof.h"

#include <QtQuick/QQuickWindow>

#include <cmath>

namespace QSP {

namespace {

constexpr qreal besideKeyboardY = 25.0;
constexpr qreal aboveKeyboard = 8.0;

} // namespace

WifiPasswordDialog::WifiPasswordDialog(QQuickItem *card, int fontPixelSize)
    : QObject(card)
    , m_root(rootOf(card))
    , m_dialog(new Dialog(card))
    , m_body(new WifiPasswordBody(fontPixelSize))
{
    shadeBehind(m_dialog);
    m_dialog->setEnableCloseButton(true);
    m_dialog->setModal(true);
    m_dialog->setClosePolicy(QQuickPopup::NoAutoClose);
    const QSizeF size = dialogSize(GlobalInfo::instance().screenSize().width());
    m_dialog->setWidth(size.width());
    m_dialog->setHeight(size.height());
    m_dialog->setBodyItem(m_body);
    if (m_root) {
        m_dialog->setParentItem(m_root);
        connect(m_root, &QQuickItem::widthChanged, this, &WifiPasswordDialog::adjust);
        connect(m_root, &QQuickItem::heightChanged, this, &WifiPasswordDialog::adjust);
    }
    adjust();

    connect(m_body, &WifiPasswordBody::confirmed, this, &WifiPasswordDialog::confirmed);
    // Before the closing is done the field still has the focus that hides the keyboard when it goes.
    connect(m_dialog, &QQuickPopup::aboutToHide, m_body, &WifiPasswordBody::clear);
    connect(m_dialog, &QQuickPopup::closed, m_body, &WifiPasswordBody::clear);
}

void WifiPasswordDialog::open(const QString &title)
{
    setTitle(title);
    adjust();
    if (m_dialog)
        m_dialog->open();
}

void WifiPasswordDialog::close()
{
    if (m_dialog)
        m_dialog->close();
}

void WifiPasswordDialog::setTitle(const QString &title)
{
    if (m_dialog)
        m_dialog->setTitle(displayName(title));
}

QString WifiPasswordDialog::password() const
{
    return m_body ? m_body->password() : QString();
}

void WifiPasswordDialog::endEditing()
{
    if (m_body)
        m_body->endEditing();
}

void WifiPasswordDialog::setBodyVisible(bool visible)
{
    if (!m_body)
        return;
    if (!visible)
        m_body->endEditing();
    m_body->setEntryVisible(visible);
}

bool WifiPasswordDialog::isBodyVisible() const
{
    return m_body && m_body->isEntryVisible();
}

void WifiPasswordDialog::setStatus(const char *text, bool error)
{
    if (m_body)
        m_body->setStatus(text, error);
}

QQuickItem *WifiPasswordDialog::busyPlace() const
{
    return m_body ? m_body->busyPlace() : nullptr;
}

void WifiPasswordDialog::adjust()
{
    if (!m_dialog || !m_root)
        return;
    m_dialog->setX(qRound((m_root->width() - m_dialog->width()) / 2.0));
    m_dialog->setY(VkbManager::instance().isVisible()
                       ? yBesideKeyboard()
                       : qRound((m_root->height() - m_dialog->height()) / 2.0));
}

// On a low screen all of it goes up to the edge, and past it before the field goes under the keyboard.
qreal WifiPasswordDialog::yBesideKeyboard() const
{
    if (!m_body || !m_root->window())
        return besideKeyboardY;
    const qreal glassHeight = m_root->window()->height();
    const qreal keyboardTop =
        m_root->mapFromScene(QPointF(0.0, glassHeight - VkbManager::instance().getHeight())).y();
    const qreal wholeY = qMax(0.0, keyboardTop - m_dialog->height());
    const qreal fieldY = keyboardTop - m_body->y() - m_body->fieldBottom() - aboveKeyboard;
    return qMin(besideKeyboardY, std::floor(qMin(wholeY, fieldY)));
}

} // namespace QSP
