#pragma once

#include "simulator/simulator.h"

#include <QtCore/QCoreApplication>

/// Reports of a panel that makes them by hand.
class WifiReports
{
public:
    /// Those of each attempt to join, by script; the values need not be any that a panel should send.
    static void scriptReports(const std::vector<int> &reports)
    {
        HmiSimulator::change([&reports](HmiSimulator::Panel &panel) { panel.faults.connect = reports; });
    }
    /// Lets the oldest waiting report of that kind come, on the panel's own thread.
    static bool report(const char *operation)
    {
        const bool made = HmiSimulator::fireNext(operation);
        QCoreApplication::processEvents();
        return made;
    }
};
