// The looks of the time editor, apart from what it does: each fills a file.

#include "controls/beepbutton.h"
#include "controls/timeeditpopup.h"
#include "controls/timekeypressfilter.h"
#include "controls/titlerow.h"
#include "controls/touchmask.h"
#include "shell/base/globalinfo.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/palette.h"
#include "shell/base/screenroot.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>
#include <QtQuick/private/qquicktextinput_p.h>

namespace QSP {

namespace {

// All lengths in units of the scale, the row from left to right.
constexpr qreal rowWidth = 632.0;
constexpr qreal rowHeight = 36.0;
constexpr qreal rowPadding = 20.0;
constexpr qreal yearWidth = 85.0;
constexpr qreal fieldWidth = 60.0;
constexpr qreal separatorWidth = 28.0;
constexpr qreal dateTimeGap = 35.0;
constexpr qreal buttonOffset = 552.0;
constexpr qreal buttonWidth = 80.0;

qreal rootWidth()
{
    const QQuickItem *root = ScreenRoot::item();
    return root ? root->width() : GlobalInfo::instance().screenSize().width();
}

} // namespace

TimeEditPopup::Sizes TimeEditPopup::sizes()
{
    const qreal width = rootWidth();
    const qreal base = exactTitleRowHeight();
    qreal scale = qMin(width / 800.0, base / 43.0);
    if (width >= 1920.0)
        scale *= 0.8;
    else if (width >= 1280.0)
        scale *= 0.85;
    else if (width >= 1024.0)
        scale *= 0.9;
    return {base, scale};
}

void TimeEditPopup::createUI()
{
    m_keyFilter = std::make_unique<TimeKeyPressFilter>(this);

    const Sizes sizes = TimeEditPopup::sizes();
    const qreal scale = sizes.scale;
    setWidth((rowWidth + 2.0 * rowPadding) * scale);
    setHeight((rowHeight + 2.0 * rowPadding) * scale);
    // Neither of the two would be deleted by the popup as such.
    auto *content = new QQuickItem;
    content->setParent(this);
    setContentItem(content);

    auto *background = new QQuickRectangle;
    background->setParent(this);
    background->setSize(QSizeF(width(), height()));
    background->setRadius((GlobalInfo::instance().hasFixedSizes() ? 8.0 : 15.0) * scale);
    background->setColor(Palette::instance().surface);
    background->border()->setColor(QColor(0xC8, 0xCD, 0xD2));
    background->border()->setWidth(1.0);
    setBackground(background);

    const QPointF topLeft((width() - rowWidth * scale) * 0.5, (height() - rowHeight * scale) * 0.5);
    createInputFields(sizes, topLeft);
    createButtons(
        QRectF(topLeft.x() + buttonOffset * scale, topLeft.y(), buttonWidth * scale, rowHeight * scale),
        sizes.base * 0.35);
    updateInputsFromDateTime();
}

void TimeEditPopup::createInputFields(const Sizes &sizes, const QPointF &topLeft)
{
    struct Field {
        InputType type;
        qreal width;
        const char *separator; // behind the field; null: none, but the gap between date and time
    };
    static constexpr std::array<Field, inputCount> fields{{
        {InputType::Year, yearWidth, "/"},
        {InputType::Month, fieldWidth, "/"},
        {InputType::Day, fieldWidth, nullptr},
        {InputType::Hour, fieldWidth, ":"},
        {InputType::Minute, fieldWidth, ":"},
        {InputType::Second, fieldWidth, nullptr},
    }};

    const qreal scale = sizes.scale;
    qreal x = topLeft.x();
    for (const Field &field : fields) {
        QQuickTextInput *input =
            createInput(field.type, QRectF(x, topLeft.y(), field.width * scale, rowHeight * scale),
                        static_cast<int>(sizes.base * 0.35));
        m_inputs[static_cast<size_t>(field.type)] = input;
        x += field.width * scale;
        if (field.separator) {
            const QRectF span(x, topLeft.y(), separatorWidth * scale, rowHeight * scale);
            createSeparator(QLatin1String(field.separator), span, static_cast<int>(sizes.base * 0.4));
            x += separatorWidth * scale;
        } else {
            x += dateTimeGap * scale;
        }
    }
    // Last, because a change of one field looks at the others.
    for (const Field &field : fields)
        setupInputValidator(input(field.type), field.type);
}

QQuickTextInput *TimeEditPopup::createInput(InputType type, const QRectF &box, int fontPixelSize)
{
    auto *frame = new QQuickRectangle(contentItem());
    frame->setPosition(box.topLeft());
    frame->setSize(box.size());
    frame->setRadius(4.0);
    frame->setColor(QColor(0xF7, 0xF8, 0xFA));
    frame->border()->setColor(Palette::instance().frame);
    frame->border()->setWidth(1.0);

    auto *input = new QQuickTextInput(frame);
    input->setSize(box.size());
    input->setFont(textFont(fontPixelSize));
    input->setColor(Palette::instance().text);
    input->setSelectionColor(Palette::instance().accent);
    input->setSelectedTextColor(Qt::white);
    input->setHAlign(QQuickTextInput::AlignHCenter);
    input->setVAlign(QQuickTextInput::AlignVCenter);
    input->setObjectName(
        QString::fromLatin1(QMetaEnum::fromType<InputType>().valueToKey(static_cast<int>(type))));
    input->installEventFilter(m_keyFilter.get());
    TouchMask::cover(input);
    connect(input, &QQuickItem::activeFocusChanged, this, [this, input, frame](bool focused) {
        frame->border()->setColor(focused ? Palette::instance().focus : Palette::instance().frame);
        onInputFocusChanged(input, focused);
    });
    return input;
}

void TimeEditPopup::createSeparator(const QString &text, const QRectF &span, int fontPixelSize)
{
    auto *separator = new QQuickText(contentItem());
    separator->setFont(textFont(fontPixelSize));
    separator->setColor(Palette::instance().text);
    separator->setVAlign(QQuickText::AlignVCenter);
    separator->setTextFormat(QQuickText::PlainText);
    separator->setText(text);
    separator->setX(span.x() + (span.width() - separator->implicitWidth()) * 0.5);
    separator->setY(span.y());
    separator->setHeight(span.height());
}

void TimeEditPopup::createButtons(const QRectF &place, qreal baseFontSize)
{
    auto *button = new BeepButton(contentItem());
    button->setPosition(place.topLeft());
    button->setSize(place.size());

    auto *face = new QQuickRectangle(button);
    face->setSize(place.size());
    face->setRadius(5.0);
    face->setColor(Palette::instance().accent);
    button->fadeWhilePressed(face);

    auto *text = new QQuickText(face);
    text->setColor(Qt::white);
    text->setFont(textFont(baseFontSize * 0.9));
    setMultilingualText(text, [] { return QCoreApplication::translate("TimeEditPopup", "OK"); });
    text->setX((place.width() - text->width()) * 0.5);
    text->setY((place.height() - text->height()) * 0.5);

    connect(button, &QQuickAbstractButton::clicked, this, &TimeEditPopup::onConfirmClicked);
    // With the Return key the operator has put the keyboard away; it does not come back by itself then.
    connect(button, &QQuickAbstractButton::clicked, this, &TimeEditPopup::editFirstWrongInput);
}

} // namespace QSP
