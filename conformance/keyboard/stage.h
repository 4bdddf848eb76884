#pragma once

#include "conformance/keyboard/keyboardlibrary.h"
#include "conformance/keyboard/recordingfield.h"

#include <QtQuick/QQuickWindow>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

#include <functional>

namespace Conformance {

/// A window with two fields and the keyboard under judgement, which is worked by touches as on a panel.
class Stage
{
public:
    static constexpr int PopupZ = 7;
    /// How long hiding may take.
    static constexpr int HidingMs = 500;
    /// After which whoever waits for what is another check's concern gives up.
    static constexpr int PatienceMs = 5000;

    explicit Stage(const KeyboardLibrary &library, const QSize &size = QSize(800, 480));
    ~Stage();
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    /// Makes the keyboard ready, once. False when it has no popup or no item then.
    bool prepare();
    /// Shows the keyboard with the keys of @p type as the screen does, and gives the focus to the field. False when
    /// it is not on the glass even after a while.
    bool show(VkbLayoutType type);
    /// However long it takes; false when it is on the glass still.
    bool hide();

    void press(const QPointF &point);
    void release(const QPointF &point);
    void tap(const QPointF &point);
    /// With the mouse.
    void click(const QPointF &point);

    /// Where the keyboard is, in coordinates of the window.
    QRectF area() const;
    /// Whether the condition comes true within the time; the event loop runs meanwhile.
    static bool waitFor(const std::function<bool()> &condition, int milliseconds);
    static void pause(int milliseconds);

    QVkbInterface *keyboard() const { return m_keyboard; }
    QQuickPopup *popup() const { return m_keyboard->popup(); }
    QQuickWindow *window() { return m_window.get(); }
    RecordingField *field() { return m_field; }
    /// Above the keyboard, without the focus.
    RecordingField *other() { return m_other; }
    /// Deletes the window and what is in it.
    void dropWindow();

private:
    void awaitFrame();
    void touch(QEvent::Type type, Qt::TouchPointState state, const QPointF &point);

    std::unique_ptr<QQuickWindow> m_window;
    RecordingField *m_field;
    RecordingField *m_other;
    QVkbInterface *m_keyboard;
    bool m_isPrepared = false;
};

} // namespace Conformance
