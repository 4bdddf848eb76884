#pragma once

/// What only this stand-in keyboard offers, for tests and demos. The settings
/// screen knows nothing of it.
///
/// Tests find a key as an item by its object name below QVkbInterface::item():
/// "vkbKey_" and the character that it types without shift ("vkbKey_a",
/// "vkbKey_7", "vkbKey_:"), or one of space, backspace, clear, enter, hide,
/// shift, symbols, letters. Only the keys of the page that is on the glass are
/// visible, and its property "pressed" tells whether a finger is on it. The keyboard's item is called "vkbKeyboard", its popup "vkbPopup".
extern "C" {

/// Makes this panel one with (true, as it is at the start) or without (false) a
/// keyboard: without one QVkbPluginLoader::vkb() returns null. A keyboard that
/// was handed out before keeps working. GUI thread.
__attribute__((visibility("default"))) void QVkbStandInSetAvailable(bool available);
}
