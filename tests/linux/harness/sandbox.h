#pragma once

#include <QtCore/QStringList>

#include <optional>

/// What nm-harness has put around a test program: ports with cables, services that can be killed.
namespace Sandbox {

/// Whether the program runs in there.
bool isAround();

/// Tells it what shall happen, in the words of harnessctl; returns the lines of the answer once it has happened,
/// and nothing, after a warning with the reason, when it cannot. Blocks meanwhile, and runs no event loop.
std::optional<QStringList> tell(const QStringList &words);

} // namespace Sandbox
