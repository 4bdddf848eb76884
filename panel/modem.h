#pragma once

#include "panel/reading.h"

#include <QtCore/QObject>

namespace QSP {

class Adapter;

/// What the service says of the 4G modem. GUI thread only.
class Modem : public QObject
{
    Q_OBJECT

public:
    /// @p adapter is the modem's.
    Modem(Adapter &adapter, QObject *parent);

    /// In percent; above 100 it is no strength.
    int signalStrength() const;
    /// 0: no link, 1: coming up, 2: up; others are unknown.
    int state() const;
    /// A new moment: what was read counts no more. Switching the adapter is one, before and after.
    void forget();

private:
    Reading<int> m_signal;
    Reading<int> m_state;
};

} // namespace QSP
