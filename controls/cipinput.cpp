#include "controls/cipinput.h"

#include "controls/addresstyping.h"
#include "controls/beepbutton.h"
#include "controls/fieldcolor.h"
#include "controls/focusloss.h"
#include "controls/touchmask.h"
#include "shell/base/documentalias.h"
#include "shell/base/embeddedcomponent.h"
#include "shell/base/qmltype.h"
#include "shell/base/vkbmanager.h"

#include <QtNetwork/QHostAddress>
#include <QtQuick/private/qquicktextinput_p.h>

#include <algorithm>
#include <utility>

namespace QSP {

namespace {

constexpr quint32 fieldMaximum = 255;

QString dotted(quint32 address)
{
    return QHostAddress(address).toString();
}

std::optional<quint32> addressIn(const QString &text)
{
    const QHostAddress address(text);
    if (address.protocol() != QAbstractSocket::IPv4Protocol)
        return std::nullopt;
    return address.toIPv4Address();
}

} // namespace

CIpInput::CIpInput(QQuickItem *parent) : QQuickItem(parent) {}

CIpInput::~CIpInput()
{
    // Leaving the scene changes the input and takes the focus from its fields, all of
    // which would be told to what is no longer an input. The keyboard alone has to know.
    disconnect(this, nullptr, this, nullptr);
    for (QQuickTextInput *field : m_fields) {
        if (!field)
            continue;
        field->disconnect(this);
        if (m_editing && field->hasActiveFocus())
            VkbManager::instance().fieldFocusChanged(field, false);
    }
}

CIpInput *CIpInput::create(QQmlEngine *engine, QQuickItem *parent)
{
    static EmbeddedComponent s_component;
    registerType();
    return s_component.create<CIpInput>(QUrl(QStringLiteral("qrc:/setting/flatui/IpInput.qml")), parent,
                                        engine);
}

void CIpInput::registerType()
{
    registerQmlType<CIpInput>();
}

void CIpInput::componentComplete()
{
    QQuickItem::componentComplete();
    m_fields = {aliasOf<QQuickTextInput>(this, "ipi0"), aliasOf<QQuickTextInput>(this, "ipi1"),
                aliasOf<QQuickTextInput>(this, "ipi2"), aliasOf<QQuickTextInput>(this, "ipi3")};
    for (QQuickTextInput *field : m_fields) {
        TouchMask::cover(field, TouchArea::fingerHeight);
        if (field)
            connect(field, &QQuickItem::activeFocusChanged, this, &CIpInput::onFocusChanged);
    }
    if (std::count(m_fields.cbegin(), m_fields.cend(), nullptr) == 0)
        m_typing = new AddressTyping(m_fields, this);
    connect(this, &CIpInput::editingChanged, this, &CIpInput::onEditingChanged);
    connect(this, &QQuickItem::enabledChanged, this, &CIpInput::onEnableChanged);
    connect(this, &QQuickItem::visibleChanged, this, [this] {
        if (!isVisible() && m_editing)
            abandonEdit();
    });
    onEnableChanged();
    // What the document gave the input before it had fields to show it in.
    showOctets(storedAddress());
}

void CIpInput::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && !data.window)
        abandonEdit();
}

void CIpInput::onClick()
{
    // Who types on from box to box has tapped nothing.
    if (!m_typing || !m_typing->isMoving())
        BeepButton::beepIfOn();
    VkbManager &keyboard = VkbManager::instance();
    keyboard.showVkb(true);
    keyboard.setLayoutType(VkbAddressDigits);
}

void CIpInput::onFocusChanged(bool focused)
{
    bool anyFocused = false;
    for (const QQuickTextInput *field : m_fields)
        anyFocused = anyFocused || (field && field->hasActiveFocus());
    auto *field = qobject_cast<QQuickTextInput *>(sender());
    if (field && !focused && losesFocusByRemoval(field))
        showOctets(storedAddress());
    setEditing(anyFocused);

    VkbManager::instance().fieldFocusChanged(field, focused);
    if (field && field->hasActiveFocus())
        field->selectAll();
}

void CIpInput::setEditing(bool editing)
{
    if (editing == m_editing)
        return;
    m_editing = editing;
    emit editingChanged();
}

void CIpInput::onEditingChanged()
{
    if (m_editing)
        return;
    // An input that was disabled under the operator's finger: nobody confirmed what stands in it.
    if (!isEnabled())
        abandonEdit();
    const std::optional<quint32> owed = std::exchange(m_owed, std::nullopt);
    const quint32 address = shownAddress();
    if (address != storedAddress()) {
        internalSetIp(dotted(address));
        emit ipChangedByEdit(address);
    } else if (owed) {
        show(*owed);
    }
}

void CIpInput::onEnableChanged()
{
    const bool enabled = isEnabled();
    for (QQuickTextInput *field : m_fields) {
        if (!field)
            continue;
        field->setEnabled(enabled);
        field->setColor(fieldTextColor(enabled));
        // Else the toolkit would hand the focus back, and with it the keyboard, once enabled again.
        if (!enabled)
            field->setFocus(false);
    }
}

void CIpInput::internalSetIp(const QString &ip)
{
    if (ip == m_ip)
        return;
    m_ip = ip;
    emit ipChanged();
}

void CIpInput::setIp(const QString &ip)
{
    if (const std::optional<quint32> address = addressIn(ip))
        show(*address);
}

void CIpInput::refreshIp(const QString &ip)
{
    // Most readings find nothing new, and the fields show what is stored unless somebody is typing.
    if (!m_editing && ip == m_ip)
        return;
    const std::optional<quint32> address = addressIn(ip);
    if (!address)
        return;
    if (m_editing)
        m_owed = address;
    else
        show(*address);
}

void CIpInput::clear()
{
    m_owed.reset();
    showOctets(0);
    internalSetIp(QString());
}

void CIpInput::setFontPixelSize(int size)
{
    if (size == m_fontPixelSize)
        return;
    m_fontPixelSize = size;
    emit fontPixelSizeChanged();
}

void CIpInput::show(quint32 address)
{
    m_owed.reset();
    showOctets(address);
    internalSetIp(dotted(address));
}

void CIpInput::showOctets(quint32 address)
{
    for (size_t i = 0; i < m_fields.size(); ++i) {
        if (!m_fields[i])
            continue;
        const QString octet = QString::number((address >> (24 - 8 * i)) & fieldMaximum);
        m_fields[i]->setText(octet);
        // What Escape goes back to is no longer what stood there when the field was entered.
        if (m_editing)
            m_fields[i]->setProperty("oldInputText", octet);
    }
}

quint32 CIpInput::shownAddress() const
{
    quint32 address = 0;
    for (const QQuickTextInput *field : m_fields)
        address = (address << 8) | (field ? qMin(field->text().toUInt(), fieldMaximum) : 0);
    return address;
}

quint32 CIpInput::storedAddress() const
{
    return addressIn(m_ip).value_or(0);
}

void CIpInput::abandonEdit()
{
    showOctets(storedAddress());
    // Else the toolkit would hand the focus back, and with it the keyboard, as soon as it can be had again.
    for (QQuickTextInput *field : m_fields) {
        if (field)
            field->setFocus(false);
    }
    // A window that dies takes the focus from nobody.
    setEditing(false);
}

} // namespace QSP
