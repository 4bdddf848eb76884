// The monkey for as long as one likes: laps of a given number of actions until the time is over, with a line of
// JSON after each. Fails when a lap leaves more behind than the first ones did, and at any message.

#include "tests/screen/monkeylaps.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>

#include <cstdio>
#include <limits>

#include <unistd.h>

namespace {

struct Order {
    int seconds = 0;
    int actions = 0;
    quint32 seed = 0;
    QSize size;
    bool isChinese = false;
};

// What is built on first need is built in these.
constexpr int lapsToWarmUp = 3;
constexpr size_t mostHeapGrowth = size_t(512) * 1024;

long residentKib()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLong() * sysconf(_SC_PAGESIZE) / 1024;
}

Order readOrder(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("seconds"), QString(), QStringLiteral("number"), QStringLiteral("60")},
        {QStringLiteral("actions"), QString(), QStringLiteral("number"), QStringLiteral("1000")},
        {QStringLiteral("seed"), QString(), QStringLiteral("number"), QStringLiteral("1")},
        {QStringLiteral("size"), QString(), QStringLiteral("WxH"), QStringLiteral("1024x600")},
        {QStringLiteral("chinese"), QString()},
    });
    parser.process(application);
    const QStringList size = parser.value(QStringLiteral("size")).split(QLatin1Char('x'));
    return {parser.value(QStringLiteral("seconds")).toInt(), parser.value(QStringLiteral("actions")).toInt(),
            parser.value(QStringLiteral("seed")).toUInt(),
            QSize(size.value(0).toInt(), size.value(1).toInt()), parser.isSet(QStringLiteral("chinese"))};
}

void tell(int lap, qint64 seconds, const Inventory &held)
{
    printf("{\"lap\": %d, \"seconds\": %lld, \"objects\": %d, \"connections\": %d, \"timers\": %d, "
           "\"popups\": %d, \"heap\": %zu, \"rss_kib\": %ld}\n",
           lap, static_cast<long long>(seconds), held.objectCount(), held.connections, held.timerCount(),
           held.openPopups, held.heap, residentKib());
    fflush(stdout);
}

} // namespace

class Soak : public PanelTest
{
    Q_OBJECT

public:
    explicit Soak(const Order &order) : m_order(order) {}

private slots:
    void leavesNothingBehind();

private:
    Order m_order;
};

void Soak::leavesNothingBehind()
{
    Inventory::watch();
    MonkeyLaps laps(m_order.size, m_order.isChinese, m_order.seed);
    QElapsedTimer time;
    time.start();
    Inventory first;
    for (int lap = 1; lap <= lapsToWarmUp || time.elapsed() < m_order.seconds * 1000LL; ++lap) {
        const Inventory held = laps.run(m_order.actions);
        tell(lap, time.elapsed() / 1000, held);
        if (lap == lapsToWarmUp)
            first = held;
        if (lap <= lapsToWarmUp)
            continue;
        const QStringList grown = held.growthSince(first);
        QVERIFY2(grown.isEmpty(), qPrintable(grown.join(QStringLiteral(", "))));
        QVERIFY2(held.heapGrowthSince(first) < mostHeapGrowth, "the heap grows");
    }
}

int main(int argc, char **argv)
{
    PanelTest::prepareEnvironment();
    // The test library takes what lasts longer than five minutes for something that hangs.
    qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number(std::numeric_limits<int>::max()));
    const QGuiApplication application(argc, argv);
    PanelTest::prepareApplication();
    Soak soak(readOrder(application));
    return QTest::qExec(&soak, QStringList(QStringLiteral("soak")));
}

#include "soak.moc"
