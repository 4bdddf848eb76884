#pragma once

#include "cards/network/addresskind.h"
#include "cards/network/rowfactory.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

namespace QSP {

/// The rows of the adapters: builds those of an adapter when it is first shown, and
/// connects them to the rules, actions and monitors of the card.
class NetworkRows : public QObject
{
    Q_OBJECT

public:
    explicit NetworkRows(CardNetwork *card);

    /// The rows built for an adapter; empty before it was shown.
    AdapterRows of(NIC nic) const { return m_rows.value(nic); }
    /// Shows or hides the rows of an adapter; builds them, visible, if there are none.
    void show(NIC nic, bool visible);

private:
    void build(NIC nic);
    void buildAddressed(NIC nic);
    void buildMobile();
    void buildVpn();

    BeepSwitch *addEnableSwitch(NIC nic, const char *label);
    void addStaticSwitch(NIC nic);
    void addAddress(const AddressKind &kind, NIC nic);
    void addMac(NIC nic);
    void addWifiTile();
    QQuickItem *append(NIC nic, QQuickItem *row);
    void reread(NIC nic);
    void rereadStatic(NIC nic);
    RowFactory make() const { return RowFactory(*m_card); }

    CardNetwork *m_card;
    QHash<int, AdapterRows> m_rows;
};

} // namespace QSP
