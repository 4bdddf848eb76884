#include "cards/network/addressrules.h"

#include "cards/network/cardlinks.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/networkrows.h"
#include "controls/beepswitch.h"
#include "controls/cipinput.h"
#include "panel/panel.h"
#include "shell/rootof.h"

namespace QSP {

namespace {

HMI::IP storedAddress(const AddressKind &kind, NIC nic)
{
    return (systemSet().*kind.stored)(nic);
}

} // namespace

bool AddressRules::isEnabled(NIC nic) const
{
    const AdapterRows rows = hasAddresses(nic) ? m_card->rows().of(nic) : AdapterRows();
    return rows.enable && !rows.enable->on();
}

bool AddressRules::isStatic(NIC nic) const
{
    const AdapterRows rows = hasAddresses(nic) ? m_card->rows().of(nic) : AdapterRows();
    return rows.fixed && rows.fixed->on();
}

void AddressRules::updateEnable(const AddressKind &kind, NIC nic) const
{
    if (CIpInput *field = m_card->rows().of(nic).*kind.field)
        field->setEnabled(mayEdit(nic));
}

void AddressRules::updateEnable(NIC nic) const
{
    for (const AddressKind *kind : g_addressKinds)
        updateEnable(*kind, nic);
}

bool AddressRules::isInUse(NIC nic) const
{
    return systemSet().isNicEnabled(nic) && isEnabled(nic);
}

bool AddressRules::hasLease(NIC nic) const
{
    return isInUse(nic) && systemSet().isDhcpOn(nic) &&
           (nic != HMI::SystemSet::WIFI || panelOf(m_card).wifi().isConnected());
}

void AddressRules::updateDisplay(const AddressKind &kind, NIC nic)
{
    CIpInput *field = m_card->rows().of(nic).*kind.field;
    if (!field || !isInUse(nic))
        return;
    HMI::IP address = (systemSet().*kind.live)(nic);
    // Without a link nothing is in force; an edit would start from nothing.
    if (address == 0 && !systemSet().isDhcpOn(nic))
        address = storedAddress(kind, nic);
    field->refreshIp(dotted(address));
    m_live |= nic;
}

void AddressRules::updateDisplay(NIC nic)
{
    for (const AddressKind *kind : g_addressKinds)
        updateDisplay(*kind, nic);
}

void AddressRules::reread(NIC nic)
{
    if (!hasAddresses(nic))
        return;
    if (hasLease(nic))
        return updateDisplay(nic);
    m_live &= ~nic;
    const AdapterRows rows = m_card->rows().of(nic);
    for (const AddressKind *kind : g_addressKinds) {
        CIpInput *field = rows.*kind->field;
        // What a reset has emptied shows no lease that is none any more.
        const bool isEmptied = field && field->ip().isEmpty() && systemSet().isDhcpOn(nic);
        if (field && !isEmptied)
            field->refreshIp(dotted(storedAddress(*kind, nic)));
    }
}

void AddressRules::dropLease(NIC nic)
{
    if (m_live & nic)
        reread(nic);
}

void AddressRules::offerStored(NIC nic) const
{
    const AdapterRows rows = m_card->rows().of(nic);
    for (const AddressKind *kind : g_addressKinds) {
        CIpInput *field = rows.*kind->field;
        if (field && (field->ip().isEmpty() || field->ip() == dotted(0)))
            field->refreshIp(dotted(storedAddress(*kind, nic)));
    }
}

void AddressRules::updateNetInfo(NIC nic)
{
    if (!systemSet().isNicEnabled(nic))
        return;
    updateDisplay(nic);
    CardLinks::reloadDns(m_card);
}

} // namespace QSP
