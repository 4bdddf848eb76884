#pragma once

#include "cards/network/adapterrows.h"
#include "cards/network/rowfactory.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

namespace QSP {

class CMacInput;
class Panel;
class StatusMonitors;

/// The rows of the adapters: builds those of an adapter when it is first shown. They show the adapter and tell
/// it what the operator does.
class NetworkRows : public QObject
{
    Q_OBJECT

public:
    /// @p monitors keep the rows with a status fresh. @p hasWifiPage: there is a page that the Wi-Fi rows lead to.
    NetworkRows(Panel &panel, const RowFactory &make, StatusMonitors &monitors, bool hasWifiPage);

    /// The rows built for an adapter; empty before it was shown.
    AdapterRows of(NIC nic) const { return m_rows.value(nic); }
    /// Shows or hides the rows of an adapter; builds them, visible, if there are none.
    void show(NIC nic, bool visible);

signals:
    /// The operator tapped what leads to the Wi-Fi page.
    void wifiPageWanted();

private:
    void build(NIC nic);
    void buildAddressed(Adapter &adapter);
    void buildMobile(Adapter &adapter);
    void buildVpn(Adapter &adapter);

    void addEnableSwitch(Adapter &adapter, const char *label);
    void addStaticSwitch(Adapter &adapter);
    void addAddress(Address address, Adapter &adapter);
    void addMac(const Adapter &adapter);
    void addWifiTile(const Adapter &adapter);
    QQuickItem *append(NIC nic, QQuickItem *row);

    Panel &m_panel;
    RowFactory m_make;
    StatusMonitors &m_monitors;
    bool m_hasWifiPage;
    QHash<int, AdapterRows> m_rows;
};

} // namespace QSP
