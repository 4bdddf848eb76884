#pragma once

#include <QtCore/QString>
#include <QtQuick/private/qquicktextinput_p.h>

namespace QSP {

/// A field for a password. It gives nothing to the clipboard, also while it shows what was typed,
/// and leaves nothing of it in memory.
class PasswordInput : public QQuickTextInput
{
public:
    explicit PasswordInput(QQuickItem *parent);
    ~PasswordInput() override;

    /// Empties the field, with all that could be undone.
    void wipe();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void reserve();

    QString m_shown; ///< what is on the glass; held, to be there when the toolkit lets go of it
};

} // namespace QSP
