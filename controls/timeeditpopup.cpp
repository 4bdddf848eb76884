#include "controls/timeeditpopup.h"

#include "controls/beepbutton.h"
#include "controls/modalshade.h"
#include "controls/popuptie.h"
#include "controls/timekeypressfilter.h"
#include "shell/base/globalinfo.h"
#include "shell/base/vkbmanager.h"

#include <QtGui/QRegExpValidator>
#include <QtQuick/private/qquicktextinput_p.h>

namespace QSP {

namespace {

// The first year of the epoch; anything below is a year that is still being typed.
constexpr int firstYear = 1970;

// Between the editor and the keyboard below it, in pixels.
constexpr qreal keyboardGap = 8.0;

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

TimeEditPopup::TimeEditPopup(QQuickItem *parent) : QQuickPopup(parent)
{
    setZ(GlobalInfo::instance().rootPopupZ());
    // What lies beneath is not operated by the tap that puts the editor away, and looks it.
    setModal(true);
    shadeBehind(this);
    // Escape ends the editing of a field, as its key filter says, not the editor.
    setClosePolicy(CloseOnPressOutside);
    connect(this, &QQuickPopup::closed, this, &TimeEditPopup::endEditing);
    tieToParent(this);
    connect(&VkbManager::instance(), &VkbManager::visibleChanged, this, &TimeEditPopup::keepClearOfKeyboard);
    createUI();
}

TimeEditPopup::~TimeEditPopup()
{
    // Dying with the focus, a field would still report the loss, to what is half gone.
    for (QQuickTextInput *input : m_inputs)
        input->disconnect(this);
    // The base closes itself in its own destructor, and would say so to what is no editor any more.
    disconnect(this, nullptr, this, nullptr);
    VkbManager::instance().disconnect(this);
    if (isVisible())
        VkbManager::instance().showVkb(false);
}

void TimeEditPopup::endEditing()
{
    // Else the toolkit may hand the focus, and with it the keyboard, back to the field at the next opening.
    for (QQuickTextInput *input : m_inputs)
        input->setFocus(false);
    updateInputsFromDateTime();
    VkbManager::instance().showVkb(false);
}

void TimeEditPopup::onInputFocusChanged(QQuickTextInput *input, bool focused)
{
    VkbManager &keyboard = VkbManager::instance();
    if (!focused) {
        keyboard.fieldFocusChanged(input, false);
        return;
    }
    BeepButton::beepIfOn();
    keyboard.fieldFocusChanged(input, true);
    keyboard.showVkb(true);
    keyboard.setLayoutType(VkbPlainDigits);
    // Another layout may be another height.
    keepClearOfKeyboard();
    input->selectAll();
}

void TimeEditPopup::keepClearOfKeyboard()
{
    const VkbManager &keyboard = VkbManager::instance();
    const QQuickItem *parent = parentItem();
    if (!keyboard.isVisible()) {
        if (m_lifted)
            setY(m_restY);
        m_lifted = false;
        return;
    }
    if (!isVisible() || !parent || !parent->window())
        return;
    if (!m_lifted)
        m_restY = y();
    const qreal keyboardTop =
        parent->mapFromScene(QPointF(0.0, parent->window()->height() - keyboard.getHeight())).y();
    const qreal overlap = m_restY + height() + keyboardGap - keyboardTop;
    m_lifted = overlap > 0.0;
    setY(m_lifted ? qMax(0.0, m_restY - overlap) : m_restY);
}

QValidator *TimeEditPopup::createValidator(InputType type)
{
    // Each pattern admits the empty text and every beginning of a possible value, so that typing
    // never gets stuck. Years end where 32 bits of seconds do.
    static const std::array<QString, inputCount> patterns{
        QStringLiteral("^(1(9(7[0-9]?|8[0-9]?|9[0-9]?)?)?|2(0([0-2][0-9]?|3[0-8]?)?)?)?$"),
        QStringLiteral("^(0?[1-9]|1[0-2])?$"),
        QStringLiteral("^(0?[1-9]|[12][0-9]|3[01])?$"),
        QStringLiteral("^([01]?[0-9]|2[0-3])?$"),
        QStringLiteral("^([0-5]?[0-9])?$"),
        QStringLiteral("^([0-5]?[0-9])?$"),
    };
    const auto index = static_cast<size_t>(type);
    if (index >= patterns.size())
        return nullptr;
    return new QRegExpValidator(QRegExp(patterns[index], Qt::CaseSensitive, QRegExp::RegExp), this);
}

void TimeEditPopup::setupInputValidator(QQuickTextInput *input, InputType type)
{
    if (QValidator *validator = createValidator(type))
        input->setValidator(validator);
    if (type != InputType::Year && type != InputType::Month)
        return;
    connect(input, &QQuickTextInput::textChanged, this, [this] {
        if (!this->input(InputType::Day)->text().isEmpty())
            validateDayAgainstMonth();
    });
}

int TimeEditPopup::value(InputType type) const
{
    return input(type)->text().toInt();
}

void TimeEditPopup::validateDayAgainstMonth()
{
    if (input(InputType::Day)->text().isEmpty())
        return;
    const QDate month(value(InputType::Year), value(InputType::Month), 1);
    if (!month.isValid())
        return;
    // The year that is being typed may yet become a leap year.
    const int days =
        month.year() < firstYear ? QDate(2000, month.month(), 1).daysInMonth() : month.daysInMonth();
    if (value(InputType::Day) > days)
        input(InputType::Day)->setText(QString());
}

void TimeEditPopup::setCurrentDateTime(const QDateTime &dateTime)
{
    if (dateTime == m_currentDateTime)
        return;
    m_currentDateTime = dateTime;
    updateInputsFromDateTime();
    emit currentDateTimeChanged();
}

void TimeEditPopup::updateInputsFromDateTime()
{
    if (!m_currentDateTime.isValid()) {
        for (QQuickTextInput *input : m_inputs)
            input->setText(QString());
        return;
    }
    const QDate date = m_currentDateTime.date();
    const QTime time = m_currentDateTime.time();
    // The day first leaves and last returns: no passing combination may take it.
    input(InputType::Day)->setText(QString());
    input(InputType::Year)->setText(date.toString(QStringLiteral("yyyy")));
    input(InputType::Month)->setText(twoDigits(date.month()));
    input(InputType::Day)->setText(twoDigits(date.day()));
    input(InputType::Hour)->setText(twoDigits(time.hour()));
    input(InputType::Minute)->setText(twoDigits(time.minute()));
    input(InputType::Second)->setText(twoDigits(time.second()));
}

QDateTime TimeEditPopup::getInputDateTime() const
{
    return QDateTime(QDate(value(InputType::Year), value(InputType::Month), value(InputType::Day)),
                     QTime(value(InputType::Hour), value(InputType::Minute), value(InputType::Second)),
                     Qt::LocalTime);
}

std::optional<TimeEditPopup::InputType> TimeEditPopup::firstWrongInput() const
{
    if (value(InputType::Year) < firstYear)
        return InputType::Year;
    if (!QDate(value(InputType::Year), value(InputType::Month), 1).isValid())
        return InputType::Month;
    if (!getInputDateTime().date().isValid())
        return InputType::Day;
    for (const InputType type : {InputType::Hour, InputType::Minute, InputType::Second}) {
        if (input(type)->text().isEmpty())
            return type;
    }
    // An hour that the clocks of the place leave out.
    const QDateTime moment = getInputDateTime();
    if (!moment.isValid())
        return InputType::Hour;
    if (moment.toSecsSinceEpoch() > m_latestSecond)
        return firstBeyond(QDateTime::fromSecsSinceEpoch(m_latestSecond));
    return std::nullopt;
}

TimeEditPopup::InputType TimeEditPopup::firstBeyond(const QDateTime &bound) const
{
    const QDate date = bound.date();
    const QTime time = bound.time();
    const std::array<int, inputCount> bounds{date.year(), date.month(),  date.day(),
                                             time.hour(), time.minute(), time.second()};
    for (const InputType type : {InputType::Year, InputType::Month, InputType::Day, InputType::Hour,
                                 InputType::Minute, InputType::Second}) {
        if (value(type) > bounds[static_cast<size_t>(type)])
            return type;
    }
    // The hour that the clocks of the place go through twice.
    return InputType::Hour;
}

bool TimeEditPopup::validateInputs() const
{
    return !firstWrongInput();
}

void TimeEditPopup::editFirstWrongInput()
{
    if (const auto wrong = firstWrongInput())
        input(*wrong)->forceActiveFocus();
}

void TimeEditPopup::onConfirmClicked()
{
    if (!validateInputs())
        return;
    m_currentDateTime = getInputDateTime();
    emit dateTimeConfirmed(m_currentDateTime);
    VkbManager::instance().showVkb(false);
    close();
}

} // namespace QSP
