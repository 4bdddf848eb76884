#pragma once

#include "linux/root.h"

#include <atomic>

namespace HmiLinux {

struct Config;

/// Whether keys beep. Any thread, also at once.
class BuzzerSwitch
{
public:
    /// @p isThere tells whether there is a buzzer to switch: without one it stays off.
    BuzzerSwitch(Root root, const Config &config, bool isThere);

    bool isOn() const { return m_on; }
    /// Writes the choice before it returns.
    void setOn(bool on);

private:
    Root m_root;
    QString m_stateFile;
    bool m_isThere;
    std::atomic<bool> m_on;
};

} // namespace HmiLinux
