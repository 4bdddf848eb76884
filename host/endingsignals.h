#pragma once

#include <QtCore/QObject>

#include <functional>

/// Lets the program clear up behind itself before a signal ends it.
///
/// The signals that ask a program to end (Ctrl+C, a closed terminal, a service manager) kill it on the spot, and no
/// destructor runs. Here the first one is carried to the event loop, whichever runs; it clears up, and the
/// program then ends by that signal, as whoever sent it expects. A second one ends it at once.
class EndingSignals : public QObject
{
    Q_OBJECT

public:
    explicit EndingSignals(std::function<void()> clearUp);

private:
    void end();

    std::function<void()> m_clearUp;
};
