#pragma once

#include "controls/basecard.h"

namespace QSP {

/// The backlight: a slider between a minus and a plus button. The light follows
/// the finger at once and is saved when the finger lets go, also when it lets go
/// because the card is hidden, disabled, taken away or deleted under it.
class CardBrightness : public BaseCard
{
    Q_OBJECT
    Q_PROPERTY(int brightnessTitleRowHeight READ brightnessTitleRowHeight CONSTANT)
    Q_PROPERTY(
        int brightnessValue READ brightnessValue WRITE setBrightnessValue NOTIFY brightnessValueChanged)
    Q_PROPERTY(bool held READ isHeld WRITE setHeld NOTIFY heldChanged)

public:
    explicit CardBrightness(QQuickItem *parent = nullptr);
    ~CardBrightness() override;

    /// In pixels; the card's other sizes are fractions of it.
    int brightnessTitleRowHeight() const { return m_titleRowHeight; }
    /// The level as the service told it at first, then 1 to 32.
    int brightnessValue() const { return m_brightnessValue; }
    /// Whether a finger is on one of the controls that change the level. Letting go saves it, once.
    bool isHeld() const { return m_held; }
    void setHeld(bool held);

    /// Applies a level without saving it; what is beyond 1 and 32 is taken as these.
    Q_INVOKABLE void setBrightnessValue(int value);
    /// Applies the level and saves it; one from beyond 1 and 32 becomes these first.
    Q_INVOKABLE void saveBrightness();
    Q_INVOKABLE void beepIfOn();

signals:
    void brightnessValueChanged();
    void heldChanged();

protected:
    void componentComplete() override;

private:
    int m_titleRowHeight;
    int m_brightnessValue;
    bool m_held = false;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardBrightness)
