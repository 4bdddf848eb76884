#pragma once

#include "cards/network/networksidecard.h"

#include <QtCore/QPair>
#include <QtCore/QString>

namespace QSP {

class Adapter;
class CIpInput;

/// The two DNS servers of the selected adapter.
///
/// While none is selected, every operation does nothing. GUI thread only.
class CardDNS : public NetworkSideCard
{
    Q_OBJECT

public:
    explicit CardDNS(QQuickItem *parent = nullptr);

    /// Asks the service for the servers, and shows them; a field that is being edited keeps its text.
    void loadDnsAndShow() const;
    /// Writes both servers, dotted; what is no address counts as 0.0.0.0.
    void saveDns(const QPair<QString, QString> &dns);
    /// Shows 0.0.0.0 twice; writes nothing.
    void disableDns();
    /// The servers may be edited exactly when the addresses of the adapter may.
    void updateEnable_DNS();

protected:
    void componentComplete() override;

private:
    Adapter *adapter() const;
    void showServers() const;

    CIpInput *m_first = nullptr;
    CIpInput *m_second = nullptr;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardDNS)
