#pragma once

#include <array>

namespace Conformance {

/// A check of the on-screen keyboard, as --list shows it.
struct KeyboardCheckInfo {
    const char *group;
    const char *name;
    const char *expectation;
};

// clang-format off
/// All checks, in the order in which they are made. The first two and the last have no function of their own:
/// loading, and the end of the process, make them.
inline constexpr std::array KeyboardChecks = {
    KeyboardCheckInfo{"library", "load", "the library can be loaded with all its symbols bound"},
    KeyboardCheckInfo{"library", "complete", "everything is defined that a screen calls by name"},

    KeyboardCheckInfo{"window", "loader", "each window has a loader of its own, the same one each time"},
    KeyboardCheckInfo{"window", "keyboard", "a loader hands out the same keyboard each time"},
    KeyboardCheckInfo{"window", "separate", "two windows have two keyboards"},
    KeyboardCheckInfo{"window", "before", "nothing is there before initialize()"},
    KeyboardCheckInfo{"window", "ready", "popup and item are there after initialize()"},
    KeyboardCheckInfo{"window", "null", "a null window is refused"},
    KeyboardCheckInfo{"window", "z", "the popup lies at the height that was asked for"},
    KeyboardCheckInfo{"window", "again", "a second initialize() only changes the height"},
    KeyboardCheckInfo{"window", "deleted", "the keyboard goes with its window, and bears it"},

    KeyboardCheckInfo{"popup", "focus", "the popup takes no focus"},
    KeyboardCheckInfo{"popup", "stays", "nothing but show() closes the popup"},
    KeyboardCheckInfo{"popup", "shown", "the keyboard is shown when show(true) returns"},
    KeyboardCheckInfo{"popup", "once", "each change is told once, and no change never"},
    KeyboardCheckInfo{"popup", "geometry", "visibility and geometry are right when the change is told"},
    KeyboardCheckInfo{"popup", "hidden", "the keyboard is hidden soon after show(false)"},
    KeyboardCheckInfo{"popup", "beside", "what lies beside a popup that is not modal can be used"},
    KeyboardCheckInfo{"popup", "below", "no touch of the keyboard reaches what lies below"},
    KeyboardCheckInfo{"popup", "above", "shown last, the keyboard lies above popups at the same height"},
    KeyboardCheckInfo{"popup", "place", "at every size the keyboard ends at the lower edge and leaves room for a field"},

    KeyboardCheckInfo{"layout", "address", "0 to 9 and the dot"},
    KeyboardCheckInfo{"layout", "digits", "0 to 9"},
    KeyboardCheckInfo{"layout", "full", "letters, capitals, digits, dot and colon"},
    KeyboardCheckInfo{"layout", "height", "the height stays when the layout changes"},
    KeyboardCheckInfo{"layout", "unknown", "an unknown layout changes nothing"},

    KeyboardCheckInfo{"keys", "events", "a key is a press and a release with its code and text"},
    KeyboardCheckInfo{"keys", "return", "each layout has Return"},
    KeyboardCheckInfo{"keys", "hide", "each layout has a hide key, which sends its code and does nothing else"},
    KeyboardCheckInfo{"keys", "backspace", "each layout has Backspace"},
    KeyboardCheckInfo{"keys", "repeat", "Backspace repeats while it is held"},
    KeyboardCheckInfo{"keys", "focus", "the field keeps the focus"},
    KeyboardCheckInfo{"keys", "target", "keys go to the field that has the focus when they are struck"},
    KeyboardCheckInfo{"keys", "midst", "the keyboard can be hidden in the middle of its own key"},
    KeyboardCheckInfo{"keys", "mouse", "a mouse strikes keys as a finger does"},

    KeyboardCheckInfo{"life", "end", "the process ends, in time and without a crash"},
};
// clang-format on

} // namespace Conformance
