#pragma once

#include "panel/adapter.h"

#include <QtCore/QHash>

namespace QSP {

/// The adapters of the panel. GUI thread only.
class Adapters : public QObject
{
    Q_OBJECT

public:
    /// @p link must outlive the adapters.
    Adapters(WifiLink *link, QObject *parent);

    /// The adapters that the panel has, as the OR of their values.
    int present() const;
    /// Made when it is first asked for.
    Adapter &of(NIC nic);

    /// A new moment, for all of them.
    void forget();
    /// The screen was opened: what is shown of any adapter is read again.
    void readAll();

signals:
    /// An adapter was switched on or off; the service knows already.
    void enabledChanged();
    void staticChanged(HMI::SystemSet::NIC nic);
    void dnsDue(HMI::SystemSet::NIC nic);

private:
    WifiLink *m_link;
    Reading<int> m_present;
    QHash<int, Adapter *> m_adapters;
};

} // namespace QSP
