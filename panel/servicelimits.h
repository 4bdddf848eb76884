#pragma once

#include <QtCore/QTimer>

#include <chrono>

namespace QSP {

/// How long the screen waits for an answer of the service. A report that comes later is dropped.
namespace ServiceLimits {

/// From the asking to join a network until the panel has joined it, with a name and an address. Without a final
/// report the attempt counts as timed out then; without the rest as joined.
inline constexpr std::chrono::seconds join{60};
/// For the list of a scan or of a reset; then it counts as failed.
inline constexpr std::chrono::seconds scan{30};
/// For the outcome of a ping test; then it counts as failed.
inline constexpr std::chrono::seconds ping{15};

} // namespace ServiceLimits

/// Tells by timeout() that a request has stayed without an answer for too long.
///
/// start() with the request, stop() with its answer; a request that replaces another starts it anew.
/// Found by its name, and set to a shorter interval, it does not let a test wait.
class AnswerLimit : public QTimer
{
public:
    AnswerLimit(std::chrono::milliseconds limit, const char *name, QObject *parent) : QTimer(parent)
    {
        setObjectName(QLatin1String(name));
        setSingleShot(true);
        // A coarse timer may come a twentieth too early.
        setTimerType(Qt::PreciseTimer);
        setInterval(limit);
    }
};

} // namespace QSP
