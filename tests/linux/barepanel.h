#pragma once

#include "tests/linux/fakeobjects.h"
#include "tests/linux/paneldirectory.h"
#include "tests/linux/privatebus.h"

/// A panel that has no adapter, no backlight and no buzzer, with what another one that had them has left behind.
class BarePanel
{
public:
    BarePanel();
    BarePanel(const BarePanel &) = delete;
    BarePanel &operator=(const BarePanel &) = delete;

    /// Whether it can be reached from now on. Processes that are started then find it.
    bool start();

private:
    PanelDirectory m_files;
    PrivateBus m_bus;
    FakeObjects m_clock;
};
