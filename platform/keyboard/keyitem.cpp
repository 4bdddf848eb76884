#include "keyitem.h"

#include <QtGui/QFont>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>

#include "palette.h"

namespace StandIn {

namespace {

constexpr qreal FaceInset = 2.5; // half the gap that the eye sees between two keys
constexpr qreal FaceRadius = 7.0;
constexpr qreal WordScale = 0.82;
constexpr qreal SignScale = 1.3;

} // namespace

KeyItem::KeyItem(QQuickItem *parent)
    : QQuickItem(parent), m_face(new QQuickRectangle(this)), m_label(new QQuickText(m_face))
{
    m_face->setRadius(FaceRadius);
    m_label->setHAlign(QQuickText::AlignHCenter);
    m_label->setVAlign(QQuickText::AlignVCenter);
}

void KeyItem::setSpec(const KeySpec &spec)
{
    m_spec = spec;
    setObjectName(QStringLiteral("vkbKey_") + keyName(spec));
    refresh();
}

void KeyItem::setPressed(bool pressed)
{
    if (m_pressed == pressed)
        return;
    m_pressed = pressed;
    refresh();
    emit pressedChanged();
}

void KeyItem::setShift(ShiftState shift)
{
    if (m_shift == shift)
        return;
    m_shift = shift;
    refresh();
}

void KeyItem::setFontPixelSize(int pixelSize)
{
    if (m_fontPixelSize == pixelSize)
        return;
    m_fontPixelSize = pixelSize;
    refresh();
}

void KeyItem::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        arrange();
}

QString KeyItem::label() const
{
    switch (m_spec.role) {
    case KeyRole::Character:
        if (m_spec.character == QLatin1Char(' '))
            return QString();
        return m_shift == ShiftState::Off ? QString(m_spec.character) : QString(m_spec.character.toUpper());
    case KeyRole::Clear:
        return QStringLiteral("C");
    case KeyRole::Symbols:
        return QStringLiteral("#+=");
    case KeyRole::Letters:
        return QStringLiteral("abc");
    case KeyRole::Backspace:
    case KeyRole::Enter:
    case KeyRole::Hide:
    case KeyRole::Shift:
        break;
    }
    return QString();
}

KeyIcon::Sign KeyItem::sign() const
{
    switch (m_spec.role) {
    case KeyRole::Backspace:
        return KeyIcon::Sign::Backspace;
    case KeyRole::Enter:
        return KeyIcon::Sign::Enter;
    case KeyRole::Hide:
        return KeyIcon::Sign::Hide;
    case KeyRole::Shift:
        return m_shift == ShiftState::Locked ? KeyIcon::Sign::ShiftLocked : KeyIcon::Sign::Shift;
    case KeyRole::Character:
        return m_spec.character == QLatin1Char(' ') ? KeyIcon::Sign::Space : KeyIcon::Sign::None;
    case KeyRole::Clear:
    case KeyRole::Symbols:
    case KeyRole::Letters:
        break;
    }
    return KeyIcon::Sign::None;
}

QColor KeyItem::faceColor() const
{
    switch (m_spec.role) {
    case KeyRole::Character:
        return m_pressed ? Palette::keyPressed() : Palette::key();
    case KeyRole::Enter:
        return m_pressed ? Palette::accentPressed() : Palette::accent();
    case KeyRole::Shift:
        if (m_shift != ShiftState::Off && !m_pressed)
            return Palette::key();
        break;
    case KeyRole::Backspace:
    case KeyRole::Clear:
    case KeyRole::Hide:
    case KeyRole::Symbols:
    case KeyRole::Letters:
        break;
    }
    return m_pressed ? Palette::commandPressed() : Palette::command();
}

QColor KeyItem::inkColor() const
{
    if (m_spec.role == KeyRole::Enter)
        return Palette::onAccent();
    if (m_spec.role == KeyRole::Shift && m_shift != ShiftState::Off)
        return Palette::accent();
    return Palette::text();
}

void KeyItem::refresh()
{
    m_face->setColor(faceColor());

    const QString text = label();
    QFont font = m_label->font();
    font.setPixelSize(text.size() > 1 ? qRound(m_fontPixelSize * WordScale) : m_fontPixelSize);
    m_label->setFont(font);
    m_label->setColor(inkColor());
    m_label->setText(text);
    m_label->setVisible(!text.isEmpty());

    const KeyIcon::Sign shown = sign();
    if (shown != KeyIcon::Sign::None && !m_icon)
        m_icon = new KeyIcon(m_face);
    if (m_icon) {
        m_icon->setSign(shown);
        m_icon->setColor(inkColor());
        m_icon->setVisible(shown != KeyIcon::Sign::None);
    }
    arrange();
}

void KeyItem::arrange()
{
    m_face->setPosition(QPointF(FaceInset, FaceInset));
    m_face->setSize(QSizeF(qMax(0.0, width() - 2 * FaceInset), qMax(0.0, height() - 2 * FaceInset)));
    m_label->setSize(m_face->size());
    if (m_icon) {
        const qreal side = qRound(m_fontPixelSize * SignScale);
        m_icon->setSize(QSizeF(side, side));
        m_icon->setPosition(
            QPointF(qRound((m_face->width() - side) / 2), qRound((m_face->height() - side) / 2)));
    }
}

} // namespace StandIn
