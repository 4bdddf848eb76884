#pragma once

#include "linux/published.h"
#include "linux/root.h"
#include "linux/snapshot.h"

#include <mutex>

namespace HmiLinux {

struct Config;

/// Whether the tunnel is on and which server it leads to, kept over a restart: the daemon brings up no tunnel of a
/// plug-in by itself. Any thread.
class VpnSwitch
{
public:
    VpnSwitch(Root root, const Config &config, Published<Snapshot> *state, Later later);

    void setOn(bool on, bool persist);
    /// A server that there is not changes nothing.
    void setServer(HMI::SystemSet::VPNServer server);

private:
    void keep();

    Root m_root;
    QString m_stateFile;
    Published<Snapshot> *m_state;
    Later m_later;
    std::mutex m_mutex;
    VpnChoice m_kept;
};

} // namespace HmiLinux
