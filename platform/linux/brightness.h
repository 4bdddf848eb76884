#pragma once

#include "linux/root.h"

#include <atomic>

namespace HmiLinux {

struct Config;

/// The backlight, as levels from 1 to 32 over the raw values that its driver has. No level is dark.
/// May be used on any thread; only what is saved is written later.
class Brightness
{
public:
    /// Puts the level that was saved in force again, or reads the one that is; a display that is too dark to be read is
    /// raised to the darkest level.
    Brightness(Root root, const Config &config, Later later);

    int level() const { return m_level; }
    /// A level outside 1 to 32 changes nothing.
    void setLevel(int level, bool save);

private:
    QString chooseDevice(const QString &wanted) const;
    int rawOf(int level) const;
    int levelOf(int raw) const;
    /// Whether it is in force.
    bool write(int level);

    Root m_root;
    Later m_later;
    QString m_device; ///< its directory; empty when there is none
    QString m_stateFile;
    int m_minimum = 1;
    int m_maximum = 1;
    std::atomic<int> m_level;
    bool m_failed = false; ///< told once
};

} // namespace HmiLinux
