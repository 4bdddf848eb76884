#pragma once

#include "tests/screen/fingers.h"
#include "tests/screen/hosts.h"

#include <memory>

/// Fingers that know nothing, and a host that knows no mercy: while they tap, touch, drag and type, the host opens,
/// closes, hides, takes out, deletes and builds the screen anew.
class Hands
{
public:
    explicit Hands(quint32 seed);

    /// Does something, and lets the screen do what follows from it. Returns what it was.
    const char *act();
    /// The screen, if there is one.
    const QQuickItem *root() const { return m_host->root(); }
    /// What the host does at its end.
    void leave();

private:
    void operate(int choice);
    void disturb(int choice);
    void build();
    void goToWifi();
    void touch();
    void detach();
    /// Nobody here waits for seconds: what the screen does every few of them, or after some, it does at once.
    void hurryClocks();
    QPoint anyControl();
    QQuickWindow *window() const { return m_host->window(); }

    Fingers m_fingers;
    std::unique_ptr<Host> m_host;
    const char *m_last = "";
};
