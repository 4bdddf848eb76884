#pragma once

#include "panel/adapters.h"
#include "panel/defaultadapter.h"
#include "panel/modem.h"
#include "panel/tunnel.h"
#include "panel/wifilink.h"

namespace QSP {

/// The panel as one screen sees it: what the service says and what the operator chose, without any item.
///
/// Every screen has one of its own, see panelOf(). Cards show it and tell it what the operator did; they know
/// of each other only through it. GUI thread only.
class Panel : public QObject
{
    Q_OBJECT

public:
    explicit Panel(QObject *parent = nullptr);

    WifiLink &wifi() { return m_wifi; }
    Adapters &adapters() { return m_adapters; }
    Adapter &adapter(NIC nic) { return m_adapters.of(nic); }
    DefaultAdapter &defaultAdapter() { return m_defaultAdapter; }
    Modem &modem() { return m_modem; }
    Tunnel &tunnel() { return m_tunnel; }

    /// The adapter that the operator looks at; g_noAdapter before the first choice.
    NIC selected() const { return m_selected; }
    /// Selects another one, which is a new moment for it; the selected one does nothing.
    void select(NIC nic);
    /// Selects the first adapter that the panel has, if none is selected.
    void selectFirst();

    /// The screen was opened: a new moment for everything. What is shown is read again, the rest when it is
    /// needed.
    void read();

signals:
    void selectionChanged(HMI::SystemSet::NIC now, HMI::SystemSet::NIC before);
    /// After read().
    void wasRead();

private:
    WifiLink m_wifi;
    Adapters m_adapters;
    DefaultAdapter m_defaultAdapter;
    Modem m_modem;
    Tunnel m_tunnel;
    NIC m_selected = g_noAdapter;
};

} // namespace QSP
