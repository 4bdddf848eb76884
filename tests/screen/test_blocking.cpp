#include "tests/screen/networkpage.h"

#include <QtGui/QGuiApplication>

#include <chrono>
#include <thread>

namespace {

/// A panel that answers one question as slowly as one that asks its hardware first.
class SlowAnswer
{
public:
    explicit SlowAnswer(const std::string &operation)
    {
        HmiSimulator::setGettersRecorded(true);
        HmiSimulator::watchJournal([operation](const HmiSimulator::Entry &entry) {
            if (entry.kind != HmiSimulator::Kind::Report && entry.operation == operation)
                std::this_thread::sleep_for(std::chrono::milliseconds(250));
        });
    }
    ~SlowAnswer() { HmiSimulator::watchJournal(nullptr); }
    Q_DISABLE_COPY(SlowAnswer)
};

} // namespace

/// The service of a maker who did not keep to what the contract says of time.
class TestBlocking : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void tellsOnceOfAGetter();
    void tellsOfARequest();
};

void TestBlocking::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestBlocking::tellsOnceOfAGetter()
{
    const SlowAnswer slow("getMac");
    expectMessage(QStringLiteral("^getMac: the service kept the screen waiting for \\d+ ms$"));
    NetworkPage page;
    page.select(QStringLiteral("LAN1"));
    QCOMPARE(int(HmiSimulator::calls("getMac").size()), 2);
}

void TestBlocking::tellsOfARequest()
{
    const SlowAnswer slow("pingTest");
    NetworkPage page;
    page.reveal(page.defaultAdapter());
    expectMessage(QStringLiteral("^pingTest: the service kept the screen waiting for \\d+ ms$"));
    page.screen().tapText(QStringLiteral("Test"));
}

PANEL_TEST_MAIN(TestBlocking)

#include "test_blocking.moc"
