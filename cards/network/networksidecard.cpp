#include "cards/network/networksidecard.h"

namespace QSP {

NetworkSideCard::NetworkSideCard(QQuickItem *parent) : BaseCard(parent), m_metrics(NetworkMetrics::ofScreen())
{}

} // namespace QSP
