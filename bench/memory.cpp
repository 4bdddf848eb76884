// Memory of the screen over the empty host, at first and after every page was
// shown, and what a thousand openings add.

#include "bench/benchhost.h"

#include <QtGui/QGuiApplication>

namespace {

constexpr qint64 generalBudget = 1228; // KiB
constexpr qint64 allPagesBudget = 5120;
constexpr qint64 networkPageBudget = 3072;
constexpr qint64 growthBudget = 64;

} // namespace

int main(int argc, char **argv)
{
    BenchHost::prepareEnvironment();
    QGuiApplication application(argc, argv);
    BenchHost::prepareFont();
    BenchHost host;
    host.showFloor();
    const qint64 floor = BenchHost::privateMemory();
    host.loadScreen();
    host.open();
    const qint64 general = BenchHost::privateMemory();

    const auto show = [&host](const char *page) { host.tapText(host.menu(), QLatin1String(page)); };
    show("Version");
    show("Language");
    const qint64 beforeNetwork = BenchHost::privateMemory();
    show("Network");
    const qint64 network = BenchHost::privateMemory();
    show("General");
    const qint64 all = BenchHost::privateMemory();

    const auto openings = [&host](int count) {
        for (int i = 0; i < count; ++i) {
            host.screen()->close();
            host.screen()->open();
            QCoreApplication::processEvents();
        }
    };
    openings(100);
    const qint64 warm = BenchHost::privateMemory();
    openings(1000);
    const qint64 grown = BenchHost::privateMemory() - warm;

    BenchHost::print({{"bench", "memory"},
                      {"general_over_floor_kib", general - floor},
                      {"general_budget_kib", generalBudget},
                      {"network_page_kib", network - beforeNetwork},
                      {"network_page_budget_kib", networkPageBudget},
                      {"all_pages_over_floor_kib", all - floor},
                      {"all_pages_budget_kib", allPagesBudget},
                      {"grown_over_1000_openings_kib", grown},
                      {"grown_budget_kib", growthBudget}});
    return general - floor <= generalBudget && all - floor <= allPagesBudget &&
                   network - beforeNetwork <= networkPageBudget && grown <= growthBudget
               ? 0
               : 1;
}
