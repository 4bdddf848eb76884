#include "cards/network/carddns.h"

#include "cards/network/cardlinks.h"
#include "cards/network/cardnetwork.h"
#include "controls/cipinput.h"
#include "shell/approotitem.h"
#include "shell/base/documentalias.h"
#include "shell/base/documenttext.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>
#include <QtNetwork/QHostAddress>

namespace QSP {

namespace {

void showAddress(CIpInput *input, HMI::IP address)
{
    if (input)
        input->refreshIp(dotted(address));
}

quint32 addressOf(const QString &text)
{
    return QHostAddress(text).toIPv4Address();
}

} // namespace

CardDNS::CardDNS(QQuickItem *parent) : NetworkSideCard(parent) {}

void CardDNS::componentComplete()
{
    NetworkSideCard::componentComplete();
    setDocumentText(this, "titleText", [] { return QCoreApplication::translate("CardDNS", "DNS Server"); });
    setDocumentText(this, "dns1Text", [] { return QCoreApplication::translate("CardDNS", "DNS 1"); });
    setDocumentText(this, "dns2Text", [] { return QCoreApplication::translate("CardDNS", "DNS 2"); });
    m_first = aliasOf<CIpInput>(this, "dns1Input");
    m_second = aliasOf<CIpInput>(this, "dns2Input");

    if (const AppRootItem *root = rootOf(this))
        connect(root, &AppRootItem::opened, this, &CardDNS::loadDnsAndShow);
    if (const CardNetwork *network = CardLinks::network(this)) {
        connect(network, &CardNetwork::netDisabledChanged, this, &CardDNS::updateEnable_DNS);
        connect(network, &CardNetwork::useStaticIpChanged, this, &CardDNS::updateEnable_DNS);
    }
    for (const CIpInput *input : {m_first, m_second}) {
        if (input)
            connect(input, &CIpInput::ipChangedByEdit, this, [this] {
                saveDns({m_first->ip(), m_second->ip()});
            });
    }
    loadDnsAndShow();
    updateEnable_DNS();
}

void CardDNS::loadDnsAndShow() const
{
    const CardNetwork *network = CardLinks::network(this);
    if (!network)
        return;
    const auto [first, second] = systemSet().getDns(network->currentNIC());
    showAddress(m_first, first);
    showAddress(m_second, second);
}

void CardDNS::saveDns(const QPair<QString, QString> &dns)
{
    if (const CardNetwork *network = CardLinks::network(this))
        systemSet().setDns(network->currentNIC(), {addressOf(dns.first), addressOf(dns.second)});
}

void CardDNS::disableDns()
{
    for (CIpInput *input : {m_first, m_second}) {
        if (input)
            input->setIp(dotted(0));
    }
}

void CardDNS::updateEnable_DNS()
{
    const CardNetwork *network = CardLinks::network(this);
    if (!network)
        return;
    const bool allowed = network->allow_ModifyIPInfo(network->currentNIC());
    for (CIpInput *input : {m_first, m_second}) {
        if (input)
            input->setEnabled(allowed);
    }
}

} // namespace QSP
