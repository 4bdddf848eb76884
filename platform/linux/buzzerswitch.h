#pragma once

#include "linux/root.h"

#include <atomic>

namespace HmiLinux {

struct Config;

/// Whether keys beep. Any thread, also at once.
class BuzzerSwitch
{
public:
    BuzzerSwitch(Root root, const Config &config);

    bool isOn() const { return m_on; }
    /// Writes the choice before it returns.
    void setOn(bool on);

private:
    Root m_root;
    QString m_stateFile;
    std::atomic<bool> m_on{true};
};

} // namespace HmiLinux
