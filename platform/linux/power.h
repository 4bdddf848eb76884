#pragma once

#include <QtCore/QObject>

namespace HmiLinux {

class Bus;

/// Restarting the device, through logind.
class Power : public QObject
{
    Q_OBJECT

public:
    explicit Power(const Bus *bus, QObject *parent = nullptr);

    void reboot();

private:
    const Bus *m_bus;
};

} // namespace HmiLinux
