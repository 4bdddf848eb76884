#pragma once

class QQmlEngine;
class QQuickItem;

/// The settings screen as the host drives it.
///
/// The host obtains it from the registry that VexPluginGetInstance() returns,
/// under the key typeid(ISystemSet). All calls come from the GUI thread. The
/// order of the three functions is the binary interface; there is no virtual
/// destructor on purpose: the shared pointer that the factory hands out
/// destroys the right object.
class __attribute__((visibility("default"))) ISystemSet
{
public:
    /// Builds the screen, hidden, in @p engine and returns its root item, which
    /// the host places in its scene and owns.
    ///
    /// @p width, @p height  size of the screen in pixels, each at least 1
    /// @p rootPopupZ        z of every popup of the screen; choose it above the host's own items
    ///
    /// Returns null, after one warning in the log, when the engine is null, the
    /// size is below 1x1 or the screen's document cannot be loaded. After such
    /// a load failure init() must not be called again in this process.
    virtual QQuickItem *init(QQmlEngine *engine, int width, int height, int rootPopupZ) = 0;
    /// Shows the screen, in the language that the panel has now. Does nothing
    /// before a successful init() and after the host deleted the root item.
    virtual void open() = 0;
    /// Hides the screen and returns it to its first page (wide screens) or its
    /// menu (narrow ones). Does nothing without a root item.
    virtual void close() = 0;

protected:
    ~ISystemSet() = default;
};
