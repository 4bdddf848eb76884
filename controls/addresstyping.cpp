#include "controls/addresstyping.h"

#include "shell/base/vkbmanager.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QVariant>
#include <QtGui/QKeyEvent>
#include <QtGui/QValidator>
#include <QtQuick/private/qquicktextinput_p.h>

#include <algorithm>

namespace QSP {

namespace {

constexpr char g_textBefore[] = "oldInputText";

bool isCommand(const QKeyEvent *key)
{
    return key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

bool isDigit(const QString &text)
{
    return text.size() == 1 && text.at(0) >= QLatin1Char('0') && text.at(0) <= QLatin1Char('9');
}

} // namespace

AddressTyping::AddressTyping(const Boxes &boxes, QObject *parent) : QObject(parent), m_boxes(boxes)
{
    for (size_t i = 0; i < m_boxes.size(); ++i) {
        m_boxes[i]->installEventFilter(this);
        connect(m_boxes[i], &QQuickItem::activeFocusChanged, this, [this, i](bool focused) {
            if (focused && !m_isMoving)
                aimAt(i);
        });
    }
}

bool AddressTyping::eventFilter(QObject *watched, QEvent *event)
{
    const auto box = static_cast<size_t>(
        std::distance(m_boxes.begin(), std::find(m_boxes.begin(), m_boxes.end(), watched)));
    if (box == m_boxes.size())
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        aimAt(box);
        return false;
    case QEvent::KeyPress:
        return keyPressed(box, static_cast<QKeyEvent *>(event));
    default:
        return false;
    }
}

bool AddressTyping::keyPressed(size_t box, QKeyEvent *key)
{
    // The box itself does the rest: it takes its own text back and drops the focus.
    if (key->key() == Qt::Key_Escape || key->key() == VkbManager::hideKey)
        takeBackAllBut(box);
    if (isCommand(key))
        return false;

    const bool overflows = isDigit(key->text()) && !hasRoomFor(box, key->text());
    const bool forward = overflows || key->text() == QLatin1String(".") || key->key() == Qt::Key_Tab;
    const bool back =
        key->key() == Qt::Key_Backtab || (key->key() == Qt::Key_Backspace && m_boxes[box]->text().isEmpty());
    if (forward && box + 1 < m_boxes.size()) {
        moveTo(box + 1);
        if (overflows)
            QCoreApplication::sendEvent(m_boxes[box + 1], key);
        return true;
    }
    if (back && box > 0) {
        moveTo(box - 1);
        return true;
    }
    return false;
}

bool AddressTyping::hasRoomFor(size_t box, const QString &digit) const
{
    const QQuickTextInput *input = m_boxes[box];
    // Who put the cursor between the digits corrects this box and means no other.
    if (!input->selectedText().isEmpty() || input->cursorPosition() < input->text().size())
        return true;
    QString longer = input->text() + digit;
    int position = longer.size();
    const QValidator *validator = input->validator();
    return !validator || validator->validate(longer, position) != QValidator::Invalid;
}

void AddressTyping::aimAt(size_t box)
{
    m_reached.reset();
    m_reached.set(box);
}

void AddressTyping::moveTo(size_t box)
{
    const QScopedValueRollback<bool> moving(m_isMoving, true);
    const QVariant before = m_boxes[box]->property(g_textBefore);
    m_boxes[box]->forceActiveFocus();
    // Entered once more, the box took what was typed for the text from before.
    if (m_reached.test(box))
        m_boxes[box]->setProperty(g_textBefore, before);
    m_reached.set(box);
}

void AddressTyping::takeBackAllBut(size_t box)
{
    for (size_t i = 0; i < m_boxes.size(); ++i) {
        if (i != box && m_reached.test(i))
            m_boxes[i]->setText(m_boxes[i]->property(g_textBefore).toString());
    }
}

} // namespace QSP
