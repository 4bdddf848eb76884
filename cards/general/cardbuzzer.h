#pragma once

#include "controls/basecard.h"

namespace QSP {

/// The switch of the panel's key beep.
class CardBuzzer : public BaseCard
{
    Q_OBJECT
    Q_PROPERTY(int buzzerTitleRowHeight READ buzzerTitleRowHeight CONSTANT)
    Q_PROPERTY(bool buzzerOn READ buzzerOn NOTIFY buzzerOnChanged)

public:
    explicit CardBuzzer(QQuickItem *parent = nullptr);

    /// In pixels; the card's other sizes are fractions of it.
    int buzzerTitleRowHeight() const { return m_titleRowHeight; }
    /// As the service says now.
    bool buzzerOn() const;

    /// Turns the buzzer over. Emits nothing: the tapped switch shows it already.
    Q_INVOKABLE void switchClicked();

signals:
    /// The screen was opened; the buzzer may have been switched elsewhere.
    void buzzerOnChanged();

protected:
    void componentComplete() override;

private:
    void setBuzzerOn(bool on);

    int m_titleRowHeight;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardBuzzer)
