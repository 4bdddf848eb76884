// First showing of each page, a switch to one that was shown before, and a
// language switch with all of them built, from the act to the painted frame.

#include "bench/benchhost.h"
#include "host/glass/sight.h"
#include "simulator/simulator.h"

#include <QtCore/QJsonArray>
#include <QtGui/QGuiApplication>

#include <vector>

namespace {

constexpr double frame = 16.0;
constexpr int warmRounds = 21;

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

    const QStringList pages{QStringLiteral("Network"), QStringLiteral("Language"), QStringLiteral("Version"),
                            QStringLiteral("General")};
    const auto show = [&host](const QString &page) { return double(host.tapText(host.menu(), page)) / 1e6; };

    bool withinBudget = true;
    QJsonObject first;
    const QStringList firstPages = pages.mid(0, 3);
    for (const QString &page : firstPages) {
        first[page] = show(page);
        withinBudget &= first[page].toDouble() <= 3 * frame;
    }
    QJsonObject warm;
    std::vector<std::vector<double>> times(static_cast<size_t>(pages.size()));
    for (int round = 0; round < warmRounds; ++round) {
        for (int i = 0; i < pages.size(); ++i)
            times[static_cast<size_t>(i)].push_back(show(pages[i]));
    }
    for (int i = 0; i < pages.size(); ++i) {
        warm[pages[i]] = BenchHost::median(times[static_cast<size_t>(i)]);
        withinBudget &= warm[pages[i]].toDouble() <= frame;
    }

    show(QStringLiteral("Network"));
    const QStringList adapters{QStringLiteral("LAN1"), QStringLiteral("Wi-Fi"), QStringLiteral("4G"),
                               QStringLiteral("VPN"), QStringLiteral("LAN0")};
    const auto select = [&host](const QString &adapter) {
        QQuickItem *card = Sight::byClass(host.root(), "QSP::CardNetwork");
        return double(host.tapText(card, adapter)) / 1e6;
    };
    QJsonObject firstAdapter;
    for (const QString &adapter : adapters)
        firstAdapter[adapter] = select(adapter);
    QJsonObject warmAdapter;
    std::vector<std::vector<double>> adapterTimes(static_cast<size_t>(adapters.size()));
    for (int round = 0; round < warmRounds; ++round) {
        for (int i = 0; i < adapters.size(); ++i)
            adapterTimes[static_cast<size_t>(i)].push_back(select(adapters[i]));
    }
    for (int i = 0; i < adapters.size(); ++i) {
        warmAdapter[adapters[i]] = BenchHost::median(adapterTimes[static_cast<size_t>(i)]);
        withinBudget &= warmAdapter[adapters[i]].toDouble() <= frame;
    }

    // Leaving and entering the Wi-Fi page goes by way of the network card's tile.
    select(QStringLiteral("Wi-Fi"));
    QQuickItem *network = Sight::byClass(host.root(), "QSP::CardNetwork");
    first[QStringLiteral("Wi-Fi")] =
        double(host.untilPainted([&] { QMetaObject::invokeMethod(network, "switchToWifiCard"); })) / 1e6;
    withinBudget &= first[QStringLiteral("Wi-Fi")].toDouble() <= 3 * frame;

    // Every page is built now. The language is switched elsewhere; opening the screen follows it.
    std::vector<double> switches;
    switches.reserve(warmRounds);
    for (int round = 0; round < warmRounds; ++round) {
        switches.push_back(double(host.untilPainted([&] {
                               HmiSimulator::setLanguage(round % 2);
                               host.screen()->open();
                           })) /
                           1e6);
    }
    const double languageSwitch = BenchHost::median(switches);
    withinBudget &= languageSwitch <= 2 * frame;

    BenchHost::print({{"bench", "pages"},
                      {"language_switch_ms", languageSwitch},
                      {"language_switch_budget_ms", 2 * frame},
                      {"first_ms", first},
                      {"first_budget_ms", 3 * frame},
                      {"warm_ms", warm},
                      {"adapter_first_ms", firstAdapter},
                      {"adapter_warm_ms", warmAdapter},
                      {"warm_budget_ms", frame}});
    return withinBudget ? 0 : 1;
}
