#include "controls/cmacinput.h"

#include "controls/beepbutton.h"
#include "controls/fieldcolor.h"
#include "controls/focusloss.h"
#include "controls/touchmask.h"
#include "shell/base/documentalias.h"
#include "shell/base/embeddedcomponent.h"
#include "shell/base/qmltype.h"
#include "shell/base/vkbmanager.h"

#include <QtQuick/private/qquicktextinput_p.h>

namespace QSP {

CMacInput::CMacInput(QQuickItem *parent) : QQuickItem(parent)
{
    qRegisterMetaType<HMI::MAC>("HMI::MAC");
}

CMacInput::~CMacInput()
{
    // Leaving the scene changes the input, and a field that dies with the focus says so: both to an
    // input that is no longer one. The keyboard alone has to know.
    disconnect(this, nullptr, this, nullptr);
    if (!m_field)
        return;
    m_field->disconnect(this);
    if (m_field->hasActiveFocus())
        VkbManager::instance().fieldFocusChanged(m_field, false);
}

CMacInput *CMacInput::create(QQmlEngine *engine, QQuickItem *parent)
{
    static EmbeddedComponent s_component;
    registerType();
    return s_component.create<CMacInput>(QUrl(QStringLiteral("qrc:/setting/flatui/MacInput.qml")), parent,
                                         engine);
}

void CMacInput::registerType()
{
    registerQmlType<CMacInput>();
}

void CMacInput::componentComplete()
{
    QQuickItem::componentComplete();
    m_field = aliasOf<QQuickTextInput>(this, "input");
    if (!m_field)
        return;
    QFont font = m_field->font();
    font.setLetterSpacing(QFont::PercentageSpacing, 130.0);
    m_field->setFont(font);
    TouchMask::cover(m_field);
    connect(m_field, &QQuickTextInput::accepted, this, &CMacInput::onAccepted);
    connect(m_field, &QQuickItem::activeFocusChanged, this, &CMacInput::onFocusChanged);
    // The toolkit leaves the focus, and with it the keyboard, to a field that nobody sees any more.
    connect(this, &QQuickItem::visibleChanged, this, [this] {
        if (!isVisible())
            abandonEdit();
    });
}

void CMacInput::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && !data.window && m_field)
        abandonEdit();
}

void CMacInput::onClick()
{
    BeepButton::beepIfOn();
    VkbManager &keyboard = VkbManager::instance();
    keyboard.showVkb(true);
    keyboard.setLayoutType(VkbFullKeyboard);
}

void CMacInput::onAccepted()
{
    VkbManager::instance().showVkb(false);
    emit macChangedByEdit(mac());
}

void CMacInput::setMac(const HMI::MAC &mac)
{
    if (!m_field)
        return;
    QStringList pairs;
    for (const unsigned char byte : mac)
        pairs << QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0')).toUpper();
    m_field->setText(pairs.join(QLatin1Char(':')));
    // What Escape goes back to is no longer what stood there when the field was entered.
    if (m_field->hasActiveFocus())
        m_field->setProperty("oldInputText", m_field->text());
}

HMI::MAC CMacInput::mac() const
{
    const QString digits = macString().trimmed().toLower().remove(QLatin1Char(':'));
    HMI::MAC mac{};
    for (size_t i = 0; i < mac.size(); ++i)
        mac[i] = static_cast<unsigned char>(digits.midRef(static_cast<int>(2 * i), 2).toUInt(nullptr, 16));
    return mac;
}

QString CMacInput::macString() const
{
    return m_field ? m_field->text() : QString();
}

void CMacInput::setEnabled(bool enabled)
{
    if (!m_field)
        return;
    if (!enabled)
        abandonEdit();
    m_field->setEnabled(enabled);
    m_field->setColor(fieldTextColor(enabled));
}

void CMacInput::onFocusChanged(bool focused)
{
    // Here and not in the document, whose handlers see nothing any more while the screen is being deleted.
    if (!focused && (!m_field->hasAcceptableInput() || losesFocusByRemoval(m_field)))
        restoreText();
    VkbManager::instance().fieldFocusChanged(m_field, focused);
}

void CMacInput::abandonEdit()
{
    if (m_field->hasActiveFocus())
        restoreText();
    // Else the toolkit would hand the focus back, and with it the keyboard, as soon as it can be had again.
    m_field->setFocus(false);
}

void CMacInput::restoreText()
{
    m_field->setProperty("text", m_field->property("oldInputText"));
}

void CMacInput::setFontPixelSize(int size)
{
    if (!m_field)
        return;
    QFont font = m_field->font();
    font.setPixelSize(size);
    m_field->setFont(font);
}

} // namespace QSP
