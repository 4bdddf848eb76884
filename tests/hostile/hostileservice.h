#pragma once

#define HOSTILE_EXPORT __attribute__((visibility("default")))

/// The control interface of a settings service that keeps nothing of its contract; the screen never sees it.
///
/// By turns it answers as a panel might and as none ever would: every number, every byte, texts of 100 kB,
/// thousands of networks, other adapters at each look. What it was asked to report on it reports never, at once,
/// twice, a thousand times, on eight threads, from inside a getter or when whoever asked has long gone.
/// Thread-safe.
namespace HostileService {

/// Begins anew as this seed has it, and forgets what it has not reported yet.
HOSTILE_EXPORT void begin(unsigned seed);
/// Makes the reports that are kept back until whoever asked may have gone, on this thread and on others.
HOSTILE_EXPORT void deliverKept();
/// Waits until no thread has anything left to report.
HOSTILE_EXPORT void waitIdle();
/// Draws texts from few letters from now on: what the toolkit keeps of each letter that it ever drew is no growth.
HOSTILE_EXPORT void useFewLetters();

} // namespace HostileService
