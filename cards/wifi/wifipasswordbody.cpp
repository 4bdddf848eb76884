#include "cards/wifi/wifipasswordbody.h"

#include "cards/wifi/passwordinput.h"
#include "controls/beepbutton.h"
#include "controls/keypressfilter.h"
#include "controls/touchmask.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/palette.h"
#include "shell/base/vkbmanager.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

constexpr QColor errorColor(0xFF, 0x00, 0x00);

// Neither the focus nor the keyboard leaves the field when such a button is tapped.
BeepButton *addQuietButton(QQuickItem *parent)
{
    auto *button = new BeepButton(parent);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoCloseVkb(false);
    button->fadeWhilePressed(button);
    return button;
}

} // namespace

WifiPasswordBody::WifiPasswordBody(int fontPixelSize, QQuickItem *parent)
    : QQuickItem(parent)
    , m_fontPixelSize(fontPixelSize)
    , m_status(new QQuickText(this))
    , m_entry(new QQuickItem(this))
    , m_busyPlace(new QQuickItem(this))
{
    m_status->setFont(textFont(fontPixelSize));
    m_status->setHAlign(QQuickText::AlignHCenter);
    m_status->setVAlign(QQuickText::AlignVCenter);
    m_status->setElideMode(QQuickText::ElideRight);
    addField();
    addShowButton();
    addConnectButton();
}

QQuickText *WifiPasswordBody::addText(QQuickItem *parent, const char *text) const
{
    auto *item = new QQuickText(parent);
    item->setFont(textFont(m_fontPixelSize * 0.8));
    item->setVAlign(QQuickText::AlignVCenter);
    setMultilingualText(item, [text] { return QCoreApplication::translate("CardWifi", text); });
    return item;
}

void WifiPasswordBody::addField()
{
    m_frame = new QQuickRectangle(m_entry);
    m_frame->setRadius(4.0);
    m_frame->border()->setWidth(1.0);
    m_frame->border()->setColor(Palette::instance().caption);

    // A field that cut off its own text at its sides would cut its touch area as well, above and below.
    m_inputView = new QQuickItem(m_frame);
    m_inputView->setClip(true);
    m_input = new PasswordInput(m_inputView);
    TouchMask::cover(m_input, TouchArea::fingerHeight);
    m_input->setFont(textFont(m_fontPixelSize * 0.8));
    m_input->setColor(Palette::instance().text);
    m_input->setSelectionColor(Palette::instance().accent);
    m_input->setVAlign(QQuickTextInput::AlignVCenter);
    m_input->setHAlign(QQuickTextInput::AlignLeft);
    m_input->setInputMethodHints(Qt::ImhSensitiveData | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    m_input->setEchoMode(QQuickTextInput::Password);
    m_input->installEventFilter(new KeyPressFilter(m_input, m_input));
    connect(m_input, &QQuickItem::activeFocusChanged, this, &WifiPasswordBody::onFocusChanged);
}

void WifiPasswordBody::addShowButton()
{
    m_showButton = addQuietButton(m_entry);
    m_showButton->setCheckable(true);
    m_box = new QQuickRectangle(m_showButton);
    m_box->setRadius(3.0);
    m_box->border()->setWidth(1.0);
    auto *tick = new QQuickImage(m_box);
    tick->setSource(QStringLiteral("qrc:/setting/icons/tickGray.png"));
    tick->setFillMode(QQuickImage::PreserveAspectFit);
    m_tick = tick;
    m_showText = addText(m_showButton, QT_TRANSLATE_NOOP("CardWifi", "Show Password"));
    m_showText->setColor(Palette::instance().strongHint);
    connect(m_showText, &QQuickItem::implicitWidthChanged, this, &WifiPasswordBody::layout);
    connect(m_showButton, &QQuickAbstractButton::checkedChanged, this, &WifiPasswordBody::updateEcho);
    updateEcho();
}

void WifiPasswordBody::addConnectButton()
{
    m_connectButton = addQuietButton(m_entry);
    auto *background = new QQuickRectangle(m_connectButton);
    background->setColor(Palette::instance().strongAccent);
    background->setRadius(5.0);
    m_connectButton->setBackground(background);
    m_connectText = addText(m_connectButton, QT_TRANSLATE_NOOP("CardWifi", "Connect"));
    m_connectText->setColor(Qt::white);
    m_connectText->setHAlign(QQuickText::AlignHCenter);
    m_connectText->setElideMode(QQuickText::ElideRight);
    connect(m_connectButton, &QQuickAbstractButton::clicked, this, &WifiPasswordBody::confirmed);
}

void WifiPasswordBody::onFocusChanged(bool focused)
{
    m_frame->border()->setColor(focused ? Palette::instance().accent : Palette::instance().caption);
    VkbManager &keyboard = VkbManager::instance();
    if (focused) {
        keyboard.showVkb(true);
        keyboard.setLayoutType(VkbFullKeyboard);
        BeepButton::beepIfOn();
    }
    keyboard.fieldFocusChanged(m_input, focused);
}

void WifiPasswordBody::updateEcho()
{
    const bool shown = m_showButton->isChecked();
    m_input->setEchoMode(shown ? QQuickTextInput::Normal : QQuickTextInput::Password);
    m_box->border()->setColor(shown ? Palette::instance().accent : Palette::instance().caption);
    m_tick->setVisible(shown);
}

QString WifiPasswordBody::password() const
{
    return m_input->text();
}

void WifiPasswordBody::clear()
{
    endEditing();
    m_input->wipe();
    m_showButton->setChecked(false);
}

void WifiPasswordBody::endEditing()
{
    m_input->setFocus(false);
}

void WifiPasswordBody::setEntryVisible(bool visible)
{
    m_entryVisible = visible;
    m_entry->setVisible(visible);
    layout();
}

void WifiPasswordBody::setStatus(const char *text, bool error)
{
    m_status->setColor(error ? errorColor : QColor(Qt::black));
    setMultilingualText(m_status, [text] { return QCoreApplication::translate("CardWifi", text); });
}

void WifiPasswordBody::layout()
{
    if (!m_connectText)
        return;
    const qreal w = width();
    const qreal h = height();
    const qreal margin = qRound(0.08 * w);
    const qreal fieldWidth = w - 2.0 * margin;
    const qreal statusHeight = qRound(0.18 * h);

    m_status->setX(margin);
    m_status->setY(qRound((m_entryVisible ? 0.06 : 0.3) * h));
    m_status->setSize(QSizeF(fieldWidth, statusHeight));
    m_busyPlace->setX(qRound(w / 2.0));
    m_busyPlace->setY(m_status->y() + statusHeight + qRound(0.04 * h));
    m_entry->setSize(size());

    m_frame->setX(margin);
    m_frame->setY(qRound(0.27 * h));
    m_frame->setSize(QSizeF(fieldWidth, qRound(0.22 * h)));
    const qreal padding = qRound(m_fontPixelSize * 0.5);
    const qreal touchMargin = TouchArea::fingerHeight.height();
    m_inputView->setPosition({padding, -touchMargin});
    m_inputView->setSize({fieldWidth - 2.0 * padding, m_frame->height() + 2.0 * touchMargin});
    m_input->setY(touchMargin);
    m_input->setSize({m_inputView->width(), m_frame->height()});

    // Taller than it looks, so that a finger finds it.
    const qreal showHeight = qRound(0.2 * h);
    const qreal box = qRound(m_fontPixelSize * 0.8);
    m_showButton->setX(margin);
    m_showButton->setY(qRound(0.51 * h));
    m_box->setY(qRound((showHeight - box) / 2.0));
    m_box->setSize(QSizeF(box, box));
    m_tick->setX(2.0);
    m_tick->setY(2.0);
    m_tick->setSize(QSizeF(box - 4.0, box - 4.0));
    m_showText->setX(box + qRound(0.4 * m_fontPixelSize));
    m_showText->setHeight(showHeight);
    m_showButton->setSize(
        QSizeF(qMin(fieldWidth, m_showText->x() + m_showText->implicitWidth()), showHeight));

    const qreal connectWidth = qRound(0.36 * w);
    m_connectButton->setX(qRound((w - connectWidth) / 2.0));
    m_connectButton->setY(qRound(0.73 * h));
    m_connectButton->setSize(QSizeF(connectWidth, qRound(0.21 * h)));
    m_connectText->setSize(m_connectButton->size());
}

void WifiPasswordBody::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        layout();
}

} // namespace QSP
