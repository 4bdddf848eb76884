#pragma once

#include <QtQuick/QQuickItem>

#include "keyicon.h"
#include "keylayout.h"

QT_BEGIN_NAMESPACE
class QQuickRectangle;
class QQuickText;
QT_END_NAMESPACE

namespace StandIn {

enum class ShiftState { Off, Once, Locked };

/// The looks of one key. It fills its cell and draws its face a little smaller;
/// it takes no input, the keyboard decides which key a finger is on.
class KeyItem : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(bool pressed READ isPressed NOTIFY pressedChanged)

public:
    explicit KeyItem(QQuickItem *parent);

    const KeySpec &spec() const { return m_spec; }
    void setSpec(const KeySpec &spec);

    bool isPressed() const { return m_pressed; }
    void setPressed(bool pressed);

    /// Letters are shown as they will be typed; the shift key shows the state itself.
    void setShift(ShiftState shift);

    /// @p pixelSize is that of a single letter; words and signs follow it.
    void setFontPixelSize(int pixelSize);

signals:
    void pressedChanged();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void refresh();
    void arrange();
    QString label() const;
    KeyIcon::Sign sign() const;
    QColor faceColor() const;
    QColor inkColor() const;

    KeySpec m_spec;
    QQuickRectangle *m_face;
    QQuickText *m_label;
    KeyIcon *m_icon = nullptr; // made for the first sign that this key shows
    ShiftState m_shift = ShiftState::Off;
    int m_fontPixelSize = 20;
    bool m_pressed = false;
};

} // namespace StandIn
