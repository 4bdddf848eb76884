#pragma once

namespace Conformance {

/// Notices that the program is asked to end (Ctrl-C, a closed terminal, a build server's time-out), so that it can put
/// the panel back before. Asked a second time it ends at once.
class Interruption
{
public:
    /// Begins to notice.
    static void watch();
    /// In a process that this one starts: to be left to this one.
    static void ignore();
    static bool isAsked();
};

} // namespace Conformance
