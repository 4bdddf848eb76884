#pragma once

#include "linux/root.h"
#include "linux/sounder.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <atomic>

namespace HmiLinux {

struct Config;

/// Whether keys beep, and the beep itself.
///
/// isOn() and setOn() may be called on any thread, also at once; beep() belongs to the thread of the object, which
/// must run an event loop for the tone to end.
class Buzzer : public QObject
{
    Q_OBJECT

public:
    Buzzer(Root root, const Config &config, std::unique_ptr<Sounder> sounder, QObject *parent = nullptr);

    bool isOn() const { return m_on; }
    /// Writes the choice before it returns.
    void setOn(bool on);
    /// One tone; a further one while it sounds lengthens it.
    void beep();

private:
    void end();

    Root m_root;
    QString m_stateFile;
    std::unique_ptr<Sounder> m_sounder;
    QTimer m_end;
    std::atomic<bool> m_on{true};
};

} // namespace HmiLinux
