#include "cards/wifi/passwordinput.h"

#include "panel/secrets.h"

#include <QtGui/QKeyEvent>
#include <QtQuick/private/qquicktextinput_p_p.h>

#include <algorithm>
#include <iterator>

namespace QSP {

namespace {

// Longer than any password of a network, so that no typing moves what was typed before to another place.
constexpr int room = 128;

} // namespace

PasswordInput::PasswordInput(QQuickItem *parent) : QQuickTextInput(parent)
{
    // With each character that is typed while the password is shown, the shown text is a new one.
    connect(this, &QQuickTextInput::displayTextChanged, this, [this] {
        overwrite(m_shown);
        m_shown = QQuickTextInputPrivate::get(this)->m_textLayout.text();
    });
    reserve();
}

PasswordInput::~PasswordInput()
{
    overwrite(QQuickTextInputPrivate::get(this)->m_text);
    overwrite(m_shown);
}

void PasswordInput::wipe()
{
    QQuickTextInputPrivate *input = QQuickTextInputPrivate::get(this);
    overwrite(input->m_text);
    for (QQuickTextInputPrivate::Command &command : input->m_history)
        command.uc = QChar();
    setText(QString());
    reserve();
}

void PasswordInput::reserve()
{
    QQuickTextInputPrivate::get(this)->m_text.reserve(room);
}

void PasswordInput::keyPressEvent(QKeyEvent *event)
{
    static constexpr QKeySequence::StandardKey copying[] = {QKeySequence::Copy, QKeySequence::Cut,
                                                            QKeySequence::DeleteEndOfLine,
                                                            QKeySequence::DeleteCompleteLine};
    if (std::none_of(std::begin(copying), std::end(copying),
                     [event](QKeySequence::StandardKey key) { return event->matches(key); }))
        QQuickTextInput::keyPressEvent(event);
}

} // namespace QSP
