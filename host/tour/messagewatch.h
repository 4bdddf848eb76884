#pragma once

/// Counts the warnings and graver messages of the toolkit and of the screen.
namespace MessageWatch {

/// Counts from now on; the messages are printed as before.
void install();
int count();

} // namespace MessageWatch
