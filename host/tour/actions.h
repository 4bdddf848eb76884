#pragma once

#include "host/options.h"
#include "host/tour/visitor.h"

#include <functional>

/// What a visitor does at a stop.
using Action = std::function<void(Visitor &)>;

/// Actions from which the stops of the tour are put together. Texts are given in English with their
/// translation context and looked for in the language that the screen has when the action is done.
namespace Do {

Action tapText(const char *context, const char *english);
/// What is not translated, such as the name of a network.
Action tapName(const char *text);
/// As Visitor::tapClass().
Action tapClass(const char *className, int index, const char *within = nullptr);
/// As Visitor::tapProperty().
Action tapProperty(const char *className, const char *property);
Action tapKey(const char *objectName);
/// On the on-screen keyboard.
Action type(const char *characters);
Action see(const char *context, const char *english);
Action seeName(const char *text);
Action seeGone(const char *context, const char *english);
/// A button that can be tapped.
Action seeEnabled(const char *context, const char *english);
/// As Visitor::waitForProperty().
Action seeReady(const char *className, const char *property);
/// The corner of the glass where nothing is, which closes lists and dialogs.
Action tapAside();
/// Waits for what the button, tapped before, comes to: closes each failure and taps again, until it succeeds.
Action tryUntil(const char *context, const char *button, const char *success, const char *failure);
/// Shows the page of a menu entry, from wherever the visitor is.
Action page(const char *title);
/// Shows the menu, from wherever the visitor is.
Action menu();
/// The key beside the glass.
Action leave();
/// Chooses a language elsewhere on the panel.
Action choose(Options::Language language);

} // namespace Do
