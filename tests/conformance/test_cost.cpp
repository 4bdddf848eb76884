#include "tests/support/paneltest.h"

#include "conformance/checks/calllimits.h"
#include "conformance/checks/cost.h"
#include "tests/conformance/pastime.h"

#include <QtGui/QGuiApplication>

#include <atomic>
#include <thread>

using namespace Conformance;

/// What a call is said to cost is what the library makes it cost.
class TestCost : public PanelTest
{
    Q_OBJECT

private slots:
    void aSleepCountsByTheClock();
    void workCounts();
    void aSleepThatIsUsualCounts();
    void whatOthersTakeDoesNotCount();
    void oneSlowCallAmongManyDoesNotCount();
};

namespace {

/// More threads than processors, which all have something to do.
class Crowd
{
public:
    Crowd()
    {
        for (unsigned i = 0; i < 4 * std::thread::hardware_concurrency(); ++i) {
            m_threads.emplace_back([this] {
                while (!m_isOver) {
                }
            });
        }
    }
    ~Crowd()
    {
        m_isOver = true;
        for (std::thread &thread : m_threads)
            thread.join();
    }
    Crowd(const Crowd &) = delete;
    Crowd &operator=(const Crowd &) = delete;

private:
    std::atomic<bool> m_isOver{false};
    std::vector<std::thread> m_threads;
};

void nothing() {}

} // namespace

void TestCost::aSleepCountsByTheClock()
{
    QVERIFY(costOf([] { Pastime::sleep(20); }) >= 20);
}

void TestCost::workCounts()
{
    QVERIFY(costOf([] { Pastime::work(3); }) >= 3);
}

void TestCost::aSleepThatIsUsualCounts()
{
    QVERIFY(usualCostOf([] { Pastime::sleep(2); }, nothing) > GetterLimit);
}

void TestCost::whatOthersTakeDoesNotCount()
{
    const Crowd crowd;
    // Long enough altogether to be interrupted many times.
    const double cost = usualCostOf([] { Pastime::work(GetterWarning / 2); }, nothing);
    QVERIFY2(cost < GetterWarning, qPrintable(QString::number(cost)));
    const double longer = costOf([] { Pastime::work(100); });
    QVERIFY2(longer < 110, qPrintable(QString::number(longer)));
}

void TestCost::oneSlowCallAmongManyDoesNotCount()
{
    int calls = 0;
    const auto call = [&calls] {
        if (++calls % 50 == 0)
            Pastime::work(2);
    };
    QVERIFY(usualCostOf(call, nothing) < GetterWarning);
}

PANEL_TEST_MAIN(TestCost)
#include "test_cost.moc"
