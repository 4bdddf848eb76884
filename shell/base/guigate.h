#pragma once

#include <functional>

namespace QSP {

/// The way from any thread to the GUI thread.
///
/// Shut before the first open() and from the moment in which the application begins to end: it
/// is the receiver of what passes, and must not be asked for when it is half gone.
class GuiGate
{
public:
    /// Opens the gate for the application that runs now, if one does. GUI thread only.
    static void open();
    /// Queues @p work to the GUI thread, or drops it when the gate is shut. Any thread, at any time.
    static void post(std::function<void()> work);

private:
    static void shut();
};

} // namespace QSP
