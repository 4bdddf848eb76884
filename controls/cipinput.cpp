#include "controls/cipinput.h"

#include "controls/beepbutton.h"
#include "controls/fieldcolor.h"
#include "controls/touchmask.h"
#include "shell/documentalias.h"
#include "shell/embeddedcomponent.h"
#include "shell/vkbmanager.h"

#include <QtNetwork/QHostAddress>
#include <QtQuick/private/qquicktextinput_p.h>

namespace QSP {

namespace {

constexpr quint32 fieldMaximum = 255;

QString dotted(quint32 address)
{
    return QHostAddress(address).toString();
}

} // namespace

CIpInput::CIpInput(QQuickItem *parent) : QQuickItem(parent) {}

CIpInput::~CIpInput()
{
    // Leaving the scene changes the input and takes the focus from its fields, all of
    // which would be told to what is no longer an input.
    disconnect(this, nullptr, this, nullptr);
    for (QQuickTextInput *field : m_fields) {
        if (field)
            field->disconnect(this);
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
    static const int _registered = qmlRegisterType<CIpInput>("QQuickSystemSet", 1, 0, "CIpInput");
    Q_UNUSED(_registered)
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
    connect(this, &CIpInput::editingChanged, this, &CIpInput::onEditingChanged);
    connect(this, &QQuickItem::enabledChanged, this, &CIpInput::onEnableChanged);
    connect(this, &QQuickItem::visibleChanged, this, [this] {
        if (!isVisible() && m_editing)
            abandonEdit();
    });
    onEnableChanged();
}

void CIpInput::onClick()
{
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
    setEditing(anyFocused);

    auto *field = qobject_cast<QQuickTextInput *>(sender());
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
    if (!isEnabled()) {
        abandonEdit();
        return;
    }
    const quint32 address = shownAddress();
    const QString edited = dotted(address);
    if (edited == (m_ip.isEmpty() ? dotted(0) : m_ip))
        return;
    internalSetIp(edited);
    emit ipChangedByEdit(address);
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
    const QHostAddress address(ip);
    if (address.protocol() != QAbstractSocket::IPv4Protocol)
        return;
    showOctets(address.toIPv4Address());
    internalSetIp(dotted(address.toIPv4Address()));
}

void CIpInput::clear()
{
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

void CIpInput::showOctets(quint32 address)
{
    for (size_t i = 0; i < m_fields.size(); ++i) {
        if (m_fields[i])
            m_fields[i]->setText(QString::number((address >> (24 - 8 * i)) & fieldMaximum));
    }
}

quint32 CIpInput::shownAddress() const
{
    quint32 address = 0;
    for (const QQuickTextInput *field : m_fields)
        address = (address << 8) | (field ? qMin(field->text().toUInt(), fieldMaximum) : 0);
    return address;
}

void CIpInput::abandonEdit()
{
    showOctets(QHostAddress(m_ip).toIPv4Address());
    for (QQuickTextInput *field : m_fields) {
        if (field)
            field->setFocus(false);
    }
}

} // namespace QSP
