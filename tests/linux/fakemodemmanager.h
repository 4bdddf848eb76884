#pragma once

#include "tests/linux/fakeobjects.h"

/// As much of ModemManager as a panel asks it, with a modem that does what the test says.
class FakeModemManager : public FakeObjects
{
    Q_OBJECT

public:
    FakeModemManager();

    bool publish(const QString &address);

    static QString modemPath(int number = 0);
    /// A modem commanded over ttyUSB0, whose network is the interface given.
    void addModem(const QString &interface = QStringLiteral("wwan0"), int number = 0);
    void setState(int state, uint failedReason = 0);
    void setSignal(uint percent);
};
