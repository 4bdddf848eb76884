#include "tests/conformance/keyboard/brokenkeyboard.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtQuick/QQuickWindow>

#include <cstdlib>

namespace {

constexpr int HideKeyCode = 0x100000;
constexpr int TooLateMs = 900;
constexpr int LowerByPixels = 30;

} // namespace

bool BrokenKeyboard::is(const char *fault)
{
    return qgetenv("KEYBOARD_FAULT") == fault;
}

BrokenKeyboard::BrokenKeyboard()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void BrokenKeyboard::initialize(QQuickWindow *window, int z)
{
    if (!window && is("window.null") && popup())
        popup()->setZ(z);
    if (window && is("window.again") && popup()) {
        popup()->deleteLater();
        m_keyboard = std::make_unique<StandIn::StandInKeyboard>();
    }
    const bool isFirst = window && !m_keyboard->popup();
    m_keyboard->initialize(window, is("window.z") ? z + 1 : z);
    m_wasInitialized = m_wasInitialized || window;
    if (isFirst)
        breakPopup();
}

void BrokenKeyboard::breakPopup()
{
    QQuickPopup *popup = m_keyboard->popup();
    m_item = m_keyboard->item();
    connect(popup, &QQuickPopup::visibleChanged, this, &BrokenKeyboard::whenVisibleChanged);
    if (is("popup.focus"))
        popup->setFocus(true);
    if (is("popup.stays"))
        popup->setClosePolicy(QQuickPopup::CloseOnPressOutside);
    if (is("popup.place"))
        popup->setY(popup->window()->height() - popup->height() - LowerByPixels);
    if (is("keys.mouse"))
        m_item->setAcceptedMouseButtons(Qt::NoButton);
}

void BrokenKeyboard::whenVisibleChanged()
{
    QQuickPopup *popup = m_keyboard->popup();
    if (!popup || !popup->isVisible())
        return;
    if (is("popup.beside"))
        popup->setModal(true);
    QQuickItem *onGlass = popup->contentItem()->parentItem();
    if (is("popup.above") && onGlass && onGlass->parentItem())
        onGlass->stackBefore(onGlass->parentItem()->childItems().constFirst());
}

QQuickPopup *BrokenKeyboard::popup()
{
    return m_keyboard->popup();
}

QQuickItem *BrokenKeyboard::item()
{
    return is("window.ready") ? nullptr : m_keyboard->item();
}

void BrokenKeyboard::show(bool visible)
{
    if (!popup() || popup()->isVisible() == visible)
        return;
    if (!visible && is("keys.midst") && m_isStriking)
        return;
    const int height = static_cast<int>(popup()->height());
    if (visible && is("popup.geometry"))
        popup()->setHeight(height - LowerByPixels);
    if (visible && is("popup.shown"))
        QTimer::singleShot(0, popup(), [this] { m_keyboard->show(true); });
    else if (!visible && is("popup.hidden"))
        QTimer::singleShot(TooLateMs, popup(), [this] { m_keyboard->show(false); });
    else
        m_keyboard->show(visible);
    if (visible && is("popup.geometry"))
        popup()->setHeight(height);
    if (visible && is("popup.once"))
        emit popup()->visibleChanged();
}

void BrokenKeyboard::setLayoutType(VkbLayoutType type)
{
    if (is("crash") && type == 1000)
        std::abort();
    const bool isKnown = type == VkbAddressDigits || type == VkbPlainDigits || type == VkbFullKeyboard;
    if (!isKnown && is("layout.unknown"))
        type = VkbPlainDigits;
    if (isKnown)
        m_type = type;
    m_keyboard->setLayoutType(type);
    if (is("layout.height") && popup() && type == VkbPlainDigits)
        popup()->setHeight(popup()->height() - LowerByPixels);
}

bool BrokenKeyboard::isVisible()
{
    if (!popup() && is("window.before") && !m_wasInitialized)
        return true;
    if (!popup() && is("window.deleted") && m_wasInitialized)
        return true;
    return m_keyboard->isVisible();
}

bool BrokenKeyboard::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_item || !m_item->window())
        return false;
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const auto *target = qobject_cast<QQuickItem *>(watched);
        return target && target->window() == m_item->window() &&
               breakKey(watched, static_cast<QKeyEvent *>(event));
    }
    return watched == m_item && breakTouch(event);
}

bool BrokenKeyboard::breakKey(QObject *watched, QKeyEvent *event)
{
    // What is sent anew from here is broken already.
    if (m_isStriking)
        return false;
    const bool isPress = event->type() == QEvent::KeyPress;
    const auto sendInstead = [this, event](QObject *target, int key) {
        QKeyEvent other(event->type(), key, event->modifiers(), event->text(), event->isAutoRepeat());
        m_isStriking = true;
        QCoreApplication::sendEvent(target, &other);
        m_isStriking = false;
        return true;
    };

    const QString text = event->text();
    if ((is("layout.address") && m_type == VkbAddressDigits && text == QLatin1String(".")) ||
        (is("layout.digits") && m_type == VkbPlainDigits && text == QLatin1String("5")) ||
        (is("layout.full") && m_type == VkbFullKeyboard && text.toLower() == QLatin1String("q")) ||
        (is("keys.events") && !isPress && text == QLatin1String("7")) ||
        (is("keys.return") && m_type == VkbPlainDigits && event->key() == Qt::Key_Return) ||
        (is("keys.backspace") && m_type == VkbPlainDigits && event->key() == Qt::Key_Backspace) ||
        (is("keys.repeat") && event->isAutoRepeat()))
        return true;
    if (is("keys.hide") && event->key() == HideKeyCode)
        return sendInstead(watched, Qt::Key_Escape);
    if (is("keys.focus") && isPress && text == QLatin1String("1"))
        m_item->forceActiveFocus();
    if (is("keys.target") && text == QLatin1String("1")) {
        if (!m_firstTarget)
            m_firstTarget = qobject_cast<QQuickItem *>(watched);
        return sendInstead(m_firstTarget, event->key());
    }
    // The field is told in here, and may want the keyboard to be hidden.
    return is("keys.midst") && sendInstead(watched, event->key());
}

bool BrokenKeyboard::breakTouch(QEvent *event)
{
    if (!is("popup.below") ||
        (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::TouchBegin))
        return false;
    QQuickItem *content = m_item->window()->contentItem();
    QQuickItem *below = content->childItems().constFirst();
    QCoreApplication::sendEvent(below, event);
    return false;
}
