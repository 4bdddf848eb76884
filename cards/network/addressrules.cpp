#include "cards/network/addressrules.h"

#include "cards/network/cardlinks.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/networkrows.h"
#include "controls/beepswitch.h"
#include "controls/cipinput.h"

namespace QSP {

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

void AddressRules::updateDisplay(const AddressKind &kind, NIC nic) const
{
    CIpInput *field = m_card->rows().of(nic).*kind.field;
    if (field && systemSet().isNicEnabled(nic) && isEnabled(nic))
        field->refreshIp(dotted((systemSet().*kind.live)(nic)));
}

void AddressRules::updateDisplay(NIC nic) const
{
    for (const AddressKind *kind : g_addressKinds)
        updateDisplay(*kind, nic);
}

void AddressRules::updateNetInfo(NIC nic) const
{
    if (!systemSet().isNicEnabled(nic))
        return;
    updateDisplay(nic);
    CardLinks::reloadDns(m_card);
}

} // namespace QSP
