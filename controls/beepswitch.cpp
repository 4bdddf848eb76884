#include "controls/beepswitch.h"

#include "shell/base/palette.h"
#include "shell/base/qmltype.h"

#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquickrectangle_p.h>

namespace QSP {

BeepSwitch::BeepSwitch(QQuickItem *parent)
    : BeepButton(parent), m_background(new QQuickRectangle(this)), m_front(new QQuickRectangle(this))
{
    setBackground(m_background);
    m_background->setColor(Palette::instance().track);
    m_front->setColor(QColorConstants::White);
    QQuickItemPrivate::get(m_front)->anchors()->setVerticalCenter(
        QQuickItemPrivate::get(this)->verticalCenter());

    // Not the whole switch, whose opacity says whether it is enabled.
    fadeWhilePressed(m_background);
    connect(this, &QQuickItem::heightChanged, this, [this] { m_background->setRadius(height() * 0.5); });
    connect(this, &QQuickItem::heightChanged, this, &BeepSwitch::resizeFront);
    connect(this, &QQuickAbstractButton::clicked, this, &BeepSwitch::onClickEvent);
    connect(this, &BeepSwitch::onChanged, this, &BeepSwitch::onOnChanged);
}

void BeepSwitch::registerType()
{
    registerQmlType<BeepSwitch>();
}

void BeepSwitch::setOn(bool on)
{
    if (on == m_on)
        return;
    m_on = on;
    emit onChanged(on);
}

void BeepSwitch::onChangeEnabled(bool bEnabled)
{
    setEnabled(bEnabled);
    setOpacity(bEnabled ? 1.0 : 0.5);
}

void BeepSwitch::onOnChanged()
{
    updateFrontRect();
    m_background->setColor(m_on ? Palette::instance().accent : Palette::instance().track);
}

void BeepSwitch::onClickEvent()
{
    setOn(!m_on);
}

void BeepSwitch::componentComplete()
{
    BeepButton::componentComplete();
    // A document may have set the width last of all, which moves no knob.
    updateFrontRect();
}

void BeepSwitch::resizeFront()
{
    const qreal third = height() / 3.0;
    m_front->setHeight(third * 2.0);
    m_front->setRadius(third);
    m_front->setWidth(third * 2.64);
    updateFrontRect();
}

void BeepSwitch::updateFrontRect()
{
    const qreal margin = m_front->height() * 0.25;
    m_front->setX(m_on ? width() - m_front->width() - margin : margin);
}

} // namespace QSP
