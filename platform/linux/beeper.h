#pragma once

#include "linux/sounder.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace HmiLinux {

struct Config;

/// The beep of a key. Its thread must run an event loop for the tone to end.
class Beeper : public QObject
{
    Q_OBJECT

public:
    /// @p sounder is null on a panel that cannot beep.
    Beeper(const Config &config, std::unique_ptr<Sounder> sounder, QObject *parent = nullptr);

    bool canBeep() const { return m_sounder != nullptr; }
    /// One tone; a further one while it sounds lengthens it.
    void beep();

private:
    void end();

    std::unique_ptr<Sounder> m_sounder;
    QTimer m_end;
};

} // namespace HmiLinux
