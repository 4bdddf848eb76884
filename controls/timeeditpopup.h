#pragma once

#include <QtCore/QDateTime>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

#include <array>
#include <limits>
#include <memory>
#include <optional>

class QQuickTextInput;
class QValidator;

namespace QSP {

class TimeKeyPressFilter;

/// The editor of date and time: six fields and an OK button over the screen.
///
/// Nothing impossible can be typed, and what is not a whole date and time is
/// not confirmed: the button then leads to the field to be put right. Keeps
/// clear of the on-screen keyboard. A press outside, which the keyboard is not,
/// closes it without a word, as does the screen when it leaves its window. What
/// was typed and not confirmed is gone then.
class TimeEditPopup : public QQuickPopup
{
    Q_OBJECT
    Q_PROPERTY(
        QDateTime currentDateTime READ currentDateTime WRITE setCurrentDateTime NOTIFY currentDateTimeChanged)

public:
    enum class InputType { Year, Month, Day, Hour, Minute, Second };
    Q_ENUM(InputType)

    explicit TimeEditPopup(QQuickItem *parent = nullptr);
    ~TimeEditPopup() override;

    /// The date and time last shown or confirmed, in local time.
    QDateTime currentDateTime() const { return m_currentDateTime; }
    /// Shows another date and time; what was typed is gone.
    void setCurrentDateTime(const QDateTime &dateTime);

    /// The last second since 1970 that can be confirmed: what the service's clock is told as a long, or less.
    void setLatestSecond(qint64 second) { m_latestSecond = second; }

    void updateInputsFromDateTime();
    /// What the fields say, in local time; invalid when there is no such moment.
    QDateTime getInputDateTime() const;
    /// Whether every field is filled, the year is whole, there is such a moment, and the clock can hold it.
    bool validateInputs() const;
    /// Reports what the fields say and closes, or does nothing when they say nothing possible.
    void onConfirmClicked();
    /// Empties the day if the month has no such day.
    void validateDayAgainstMonth();
    QValidator *createValidator(InputType type);
    void setupInputValidator(QQuickTextInput *input, InputType type);

signals:
    void currentDateTimeChanged();
    /// The operator confirmed a date and time (local time).
    void dateTimeConfirmed(const QDateTime &dateTime);

private:
    static constexpr size_t inputCount = 6;

    /// The sizes that everything in the popup derives from, in pixels.
    struct Sizes {
        qreal base;
        qreal scale;
    };

    static Sizes sizes();
    void createUI();
    void createInputFields(const Sizes &sizes, const QPointF &topLeft);
    QQuickTextInput *createInput(InputType type, const QRectF &box, int fontPixelSize);
    void createSeparator(const QString &text, const QRectF &span, int fontPixelSize);
    void createButtons(const QRectF &place, qreal baseFontSize);
    std::optional<InputType> firstWrongInput() const;
    InputType firstBeyond(const QDateTime &bound) const;
    void editFirstWrongInput();
    void endEditing();
    void onInputFocusChanged(QQuickTextInput *input, bool focused);
    void keepClearOfKeyboard();

    QQuickTextInput *input(InputType type) const { return m_inputs[static_cast<size_t>(type)]; }
    int value(InputType type) const;

    std::array<QQuickTextInput *, inputCount> m_inputs{};
    QDateTime m_currentDateTime;
    qint64 m_latestSecond = std::numeric_limits<long>::max();
    std::unique_ptr<TimeKeyPressFilter> m_keyFilter;
    qreal m_restY = 0.0;
    bool m_lifted = false;
};

} // namespace QSP
