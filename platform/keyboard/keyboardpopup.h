#pragma once

#include <QtQuickTemplates2/private/qquickpopup_p.h>

namespace StandIn {

class KeyboardItem;

/// The popup that keeps the keyboard across the bottom of its window, whatever
/// size that takes.
///
/// It never takes the focus and never closes by itself. It is modal without a
/// dimmed background until told otherwise: whoever wants the rest of the screen
/// to stay usable beside the keyboard sets @c modal to false.
class KeyboardPopup : public QQuickPopup
{
    Q_OBJECT

public:
    /// The popup belongs to the content of @p window and dies with it.
    explicit KeyboardPopup(QQuickWindow *window);

    KeyboardItem *keyboard() const { return m_keyboard; }

private:
    void fit();

    KeyboardItem *m_keyboard;
};

} // namespace StandIn
