#pragma once

#include "cards/network/addresskind.h"

namespace QSP {

class CardNetwork;

/// What the address fields show, and whether they may be edited.
///
/// Editing is decided by the switches on the card and not by the service, so
/// that the fields answer to the operator before the service confirms.
class AddressRules
{
public:
    explicit AddressRules(CardNetwork *card) : m_card(card) {}

    bool isEnabled(NIC nic) const;
    bool isStatic(NIC nic) const;
    bool mayEdit(NIC nic) const { return isStatic(nic) && isEnabled(nic); }

    void updateEnable(const AddressKind &kind, NIC nic) const;
    void updateEnable(NIC nic) const;
    /// Shows the address in force unless the adapter is off; a field that is being edited keeps its text.
    /// An adapter on static addresses that has none in force shows the stored one.
    void updateDisplay(const AddressKind &kind, NIC nic);
    void updateDisplay(NIC nic);
    /// Shows what rows built now would show: the lease of an adapter that is on DHCP and in use, else what is stored.
    void reread(NIC nic);
    /// reread(), if what is shown may be a lease: for whoever finds again and again that there is none.
    void dropLease(NIC nic);
    /// Shows what is stored where nothing is shown, so that no edit starts from nothing.
    void offerStored(NIC nic) const;
    /// updateDisplay() of an adapter that the service calls enabled; the DNS card follows.
    void updateNetInfo(NIC nic);

private:
    bool isInUse(NIC nic) const;
    bool hasLease(NIC nic) const;

    CardNetwork *m_card;
    int m_live = 0; ///< the adapters whose fields were last filled with what was in force
};

} // namespace QSP
