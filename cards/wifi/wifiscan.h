#pragma once

#include "hmi/systemset.h"
#include "panel/servicelimits.h"

#include <memory>

namespace QSP {

/// Asks the service for the networks nearby, by a scan or by a reset of the Wi-Fi settings.
///
/// Each request is answered once: a further list, one that comes too late and one of a request that was
/// replaced reach nobody.
class WifiScan : public QObject
{
    Q_OBJECT

public:
    /// In the order of the service; null when it found out nothing, or did not answer.
    using Records = std::shared_ptr<const std::vector<HMI::SystemSet::SsidInfo>>;

    explicit WifiScan(QObject *parent);
    ~WifiScan() override;

    void scan();
    void reset();

signals:
    void answered(const QSP::WifiScan::Records &records);

private:
    HMI::SystemSet::WifiListCallback receiver(const char *operation);
    void answer(const Records &records);

    AnswerLimit m_limit;
    /// The newest request's, until it is answered.
    std::unique_ptr<QObject> m_receiver;
};

} // namespace QSP
