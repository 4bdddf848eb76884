#pragma once

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QQuickItem;
class QQuickPopup;
class QQuickWindow;
QT_END_NAMESPACE

#define QVKB_EXPORT __attribute__((visibility("default")))

/// Key layouts of the on-screen keyboard. The values are the platform's; these
/// three are the ones that the settings screen asks for.
enum VkbLayoutType : int {
    VkbAddressDigits = 0, ///< digits and the dot, for one field of an IPv4 address
    VkbPlainDigits = 2,   ///< digits only, for numbers such as a year
    VkbFullKeyboard = 5,  ///< letters with shift, digits and symbols, for passwords and the like
};

/// The on-screen keyboard as the platform offers it.
///
/// All calls come from the GUI thread. The order of the virtual functions is
/// part of the contract: a platform library is called through its table, so
/// none may be added, removed or moved. The keyboard belongs to the platform;
/// the screen never deletes it, hence the protected, non-virtual destructor.
///
/// Keys go to the item that has the active focus, as ordinary key events. The
/// keyboard must never take the focus for itself. Its hide key sends the key
/// code 0x100000 (press and release) and nothing else: the field decides what
/// ending the entry means and asks the keyboard to hide.
class QVKB_EXPORT QVkbInterface
{
public:
    /// Makes the keyboard ready to be shown in @p window, its popup at height
    /// @p z. Called once, before any other call; a second call with the same
    /// window only changes z. A null window is refused.
    virtual void initialize(QQuickWindow *window, int z) = 0;
    /// The popup that holds the keyboard; null before initialize().
    virtual QQuickPopup *popup() = 0;
    /// The keyboard as an item of the popup, for its geometry; null while none exists.
    virtual QQuickItem *item() = 0;
    /// Shows or hides the keyboard. Showing a shown keyboard, or hiding a
    /// hidden one, does nothing. The popup's visibleChanged tells the outcome;
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
    /// The loader of @p window, never null. Loaders live as long as the process.
    static QVkbPluginLoader *instance(QQuickWindow *window);
    /// The keyboard, or null when this panel has none.
    QVkbInterface *vkb();

protected:
    QVkbPluginLoader() = default;
    ~QVkbPluginLoader() = default;
    Q_DISABLE_COPY(QVkbPluginLoader)
};
