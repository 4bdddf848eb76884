#include "cards/network/carddns.h"

#include "controls/cipinput.h"
#include "panel/panel.h"
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

    Panel &panel = panelOf(this);
    connect(&panel, &Panel::wasRead, this, &CardDNS::showServers);
    connect(&panel, &Panel::selectionChanged, this, [this] {
        showServers();
        updateEnable_DNS();
    });
    connect(&panel.adapters(), &Adapters::enabledChanged, this, &CardDNS::updateEnable_DNS);
    connect(&panel.adapters(), &Adapters::staticChanged, this, &CardDNS::updateEnable_DNS);
    connect(&panel.adapters(), &Adapters::dnsDue, this, [this](NIC nic) {
        if (nic == panelOf(this).selected())
            showServers();
    });
    if (m_first && m_second) {
        const auto save = [this] { saveDns({m_first->ip(), m_second->ip()}); };
        connect(m_first, &CIpInput::ipChangedByEdit, this, save);
        connect(m_second, &CIpInput::ipChangedByEdit, this, save);
    }
    showServers();
    updateEnable_DNS();
}

Adapter *CardDNS::adapter() const
{
    Panel &panel = panelOf(this);
    return panel.selected() == g_noAdapter ? nullptr : &panel.adapter(panel.selected());
}

void CardDNS::showServers() const
{
    const Adapter *selected = adapter();
    if (!selected)
        return;
    const auto [first, second] = selected->dns();
    showAddress(m_first, first);
    showAddress(m_second, second);
}

void CardDNS::loadDnsAndShow() const
{
    if (Adapter *selected = adapter())
        selected->forget();
    showServers();
}

void CardDNS::saveDns(const QPair<QString, QString> &dns)
{
    if (Adapter *selected = adapter())
        selected->setDns({addressOf(dns.first), addressOf(dns.second)});
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
    const Adapter *selected = adapter();
    for (CIpInput *input : {m_first, m_second}) {
        if (input && selected)
            input->setEnabled(selected->mayEdit());
    }
}

} // namespace QSP
