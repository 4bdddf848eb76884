// The Wi-Fi page with 10 to 1,000 networks: from the report of the scan to the painted list.

#include "bench/benchhost.h"
#include "host/glass/sight.h"
#include "simulator/simulator.h"

#include <QtGui/QGuiApplication>

#include <vector>

namespace {

constexpr int rounds = 7;
constexpr double frame = 16.0;

} // namespace

int main(int argc, char **argv)
{
    BenchHost::prepareEnvironment();
    QGuiApplication application(argc, argv);
    BenchHost::prepareFont();
    BenchHost host;
    host.showFloor();
    host.loadScreen();
    host.open();
    HmiSimulator::leaveNetwork();
    HmiSimulator::setManual(true);

    host.tapText(host.menu(), QStringLiteral("Network"));
    QQuickItem *network = Sight::byClass(host.root(), "QSP::CardNetwork");
    host.tapText(network, QStringLiteral("Wi-Fi"));
    host.untilPainted([&] { QMetaObject::invokeMethod(network, "switchToWifiCard"); });
    QQuickItem *wifi = Sight::byClass(host.root(), "QSP::CardWifi");
    HmiSimulator::dropPending();

    QJsonObject milliseconds;
    std::vector<double> perNetwork;
    double twoHundred = 0.0;
    for (const int count : {10, 100, 200, 1000}) {
        HmiSimulator::setNetworks(HmiSimulator::crowd(count));
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round) {
            HmiSimulator::fireAll();
            QCoreApplication::processEvents();
            QMetaObject::invokeMethod(wifi, "onClickScanWifi");
            QCoreApplication::processEvents();
            const qint64 time = host.untilPainted([] { HmiSimulator::fireNext("scanWifi"); });
            times.push_back(double(time) / 1e6);
        }
        const double time = BenchHost::median(times);
        milliseconds[QString::number(count)] = time;
        if (count == 200)
            twoHundred = time;
        if (count == 100 || count == 1000)
            perNetwork.push_back(time / count);
    }
    const double flatness = perNetwork[1] / perNetwork[0];
    BenchHost::print({{"bench", "lists"},
                      {"painted_ms", milliseconds},
                      {"per_network_1000_to_100", flatness},
                      {"per_network_budget", 1.3},
                      {"budget_200_ms", 3 * frame}});
    return flatness <= 1.3 && twoHundred <= 3 * frame ? 0 : 1;
}
