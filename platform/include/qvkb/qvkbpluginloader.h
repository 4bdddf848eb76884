#pragma once

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QQuickItem;
class QQuickPopup;
class QQuickWindow;
QT_END_NAMESPACE

#define QVKB_EXPORT __attribute__((visibility("default")))

/// Key layouts of the on-screen keyboard. The values are the platform's; these
/// three are the ones that the settings screen asks for. Each has Backspace,
/// Return and the hide key besides.
enum VkbLayoutType : int {
    VkbAddressDigits = 0, ///< 0 to 9 and the dot, for one field of an IPv4 address
    VkbPlainDigits = 2,   ///< 0 to 9, for numbers such as a year
    VkbFullKeyboard = 5,  ///< a to z and A to Z, 0 to 9, dot, colon and symbols, for passwords and the like
};

/// The on-screen keyboard as the platform offers it.
///
/// All calls come from the GUI thread. The order of the virtual functions is
/// part of the contract: a platform library is called through its table, so
/// none may be added, removed or moved. The keyboard belongs to the platform;
/// the screen never deletes it, hence the protected, non-virtual destructor.
///
/// Keys. They go to the item that has the active focus when they are struck,
/// as ordinary key events of the GUI thread: a press and a release, both with
/// the text that the key types. The keyboard must never take the focus for
/// itself, neither when it is shown nor when one of its keys is pressed.
///
///     key            code                text    the field
///     0 to 9         Qt::Key_0 ...       "0"     takes the character
///     . : and signs  the character's     "."     takes the character
///     letters        the capital's       "a"     takes the character, small or capital as its text is
///     Backspace      Qt::Key_Backspace           deletes; repeats while it is held, as auto-repeat events
///     Return         Qt::Key_Return              stores: the entry ends, and what was typed counts
///                    (or Qt::Key_Enter)
///     hide           0x100000            none    discards: the entry ends, and nothing of it is stored
///     Clear          Qt::Key_Clear               is emptied; a keyboard may do without this key
///
/// The hide key sends its code and does nothing else: the field decides what
/// ending the entry means, and the screen then asks the keyboard to hide. That
/// comes from within the key event, as do show() and setLayoutType() when the
/// focus goes on to another field: a keyboard has to bear all of them in the
/// middle of its own key.
///
/// Time. initialize(), setLayoutType() and show(true) are done when they
/// return. show(false) may take up to half a second, for an animation. Keys may
/// come in the middle of the touch that strikes them, or from the event loop.
///
/// Life. The popup and its item are gone when the window is, also when it is
/// deleted while the keyboard is shown; popup() and item() are null then,
/// isVisible() is false, and every call still returns.
class QVKB_EXPORT QVkbInterface
{
public:
    /// Makes the keyboard ready to be shown in @p window, its popup at height
    /// @p z. Called once, before any other call; a second call with the same
    /// window only changes z. A null window is refused.
    ///
    /// @p z is the z of QQuickPopup, and every popup of the screen has the same.
    /// Of popups at one height the one shown last is on top, so the keyboard
    /// lies above the dialog whose field it serves. No z of its own on top of that.
    virtual void initialize(QQuickWindow *window, int z) = 0;
    /// The popup that holds the keyboard; null before initialize(). It has no
    /// focus and closes by nothing but show(): QQuickPopup::NoAutoClose. The
    /// screen sets its flag "modal" to false while the keyboard is shown, so that
    /// what lies beside the keyboard can be used, and puts it back afterwards.
    virtual QQuickPopup *popup() = 0;
    /// The keyboard as an item of the popup, for its geometry; null while none
    /// exists. All keys lie in it, and whatever touches it goes no further. It
    /// ends at the lower edge of the window and leaves room for a field above.
    virtual QQuickItem *item() = 0;
    /// Shows or hides the keyboard. Showing a shown keyboard, or hiding a
    /// hidden one, does nothing. The popup's visibleChanged tells the outcome, once;
    /// when it comes, isVisible() and the geometry of item() are right already.
    virtual void show(bool visible) = 0;
    /// Not used by the screen; keeps the place in the table.
    virtual void reserved1() = 0;
    /// Chooses the keys. An unknown value leaves the layout as it was. May come
    /// while the keyboard is shown: the height of item() must then stay as it is,
    /// because the screen made room for it when it became visible.
    virtual void setLayoutType(VkbLayoutType type) = 0;
    /// Not used by the screen; keeps the place in the table.
    virtual void reserved2() = 0;
    /// Whether the keyboard is on the glass now.
    virtual bool isVisible() = 0;

protected:
    ~QVkbInterface() = default;
};

/// Gives access to the keyboard of a window.
class QVKB_EXPORT QVkbPluginLoader
{
public:
    /// The loader of @p window, never null; the same one each time, and another
    /// one for another window. Loaders live as long as the process; one whose
    /// window has gone may be handed out for a new window.
    static QVkbPluginLoader *instance(QQuickWindow *window);
    /// The keyboard, the same one each time, or null when this panel has none.
    QVkbInterface *vkb();

protected:
    QVkbPluginLoader() = default;
    ~QVkbPluginLoader() = default;
    Q_DISABLE_COPY(QVkbPluginLoader)
};
