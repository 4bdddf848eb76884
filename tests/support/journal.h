#pragma once

#include "simulator/simulator.h"

#include <QtCore/QStringList>

/// The simulated panel's journal in the types that the test library prints.
namespace Journal {

inline QStringList toList(const std::vector<std::string> &texts)
{
    QStringList list;
    for (const std::string &text : texts)
        list << QString::fromStdString(text);
    return list;
}

/// All calls that changed or asked something, oldest first.
inline QStringList calls()
{
    return toList(HmiSimulator::calls());
}

inline QStringList calls(const char *operation)
{
    return toList(HmiSimulator::calls(operation));
}

/// Calls but for key beeps, which every tap makes.
inline QStringList callsButBeeps()
{
    QStringList list = calls();
    list.removeAll(QStringLiteral("beep(true)"));
    return list;
}

} // namespace Journal
