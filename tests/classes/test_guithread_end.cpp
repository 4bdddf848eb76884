#include "shell/base/guithread.h"
#include "tests/support/paneltest.h"

#include <atomic>
#include <thread>
#include <vector>

namespace {

constexpr int ends = 5000;
constexpr int threadCount = 3;

using Report = std::function<void(int)>;

/// Threads of a service that report on and on, whether there is an application or not.
class Storm
{
public:
    explicit Storm(Report report) : m_report(std::move(report))
    {
        for (int i = 0; i < threadCount; ++i) {
            m_threads.emplace_back([this] {
                for (int value = 0; !m_isOver; ++value) {
                    m_report(value);
                    std::this_thread::yield();
                }
            });
        }
    }
    ~Storm()
    {
        m_isOver = true;
        for (std::thread &thread : m_threads)
            thread.join();
    }

private:
    Report m_report;
    std::atomic<bool> m_isOver{false};
    std::vector<std::thread> m_threads;
};

} // namespace

/// Reports while the application ends. Makes its own applications, thousands of them, because the
/// moment in question is short.
class TestGuiThreadEnd : public QObject
{
    Q_OBJECT

private slots:
    void reportsMayComeWhileTheApplicationEnds();
    void reportsArriveInTheNextApplication();
    void nothingArrivesAfterTheEnd();
};

void TestGuiThreadEnd::reportsMayComeWhileTheApplicationEnds()
{
    int argumentCount = 1;
    char name[] = "ends";
    char *arguments[] = {name, nullptr};
    int arrived = 0;
    for (int i = 0; i < ends; ++i) {
        QObject card;
        auto application = std::make_unique<QCoreApplication>(argumentCount, arguments);
        const Storm storm(QSP::onGuiThread("report", &card, [&arrived](QObject *, int) { ++arrived; }));
        QCoreApplication::processEvents();
        application.reset();
    }
    QVERIFY2(arrived > 0, "a storm in which nothing arrives proves nothing");
}

void TestGuiThreadEnd::reportsArriveInTheNextApplication()
{
    int argumentCount = 1;
    char name[] = "ends";
    char *arguments[] = {name, nullptr};
    for (int i = 0; i < 2; ++i) {
        const QCoreApplication application(argumentCount, arguments);
        QObject card;
        int arrived = 0;
        const Report report =
            QSP::onGuiThread("report", &card, [&arrived](QObject *, int value) { arrived += value; });
        std::thread(report, 3).join();
        QCoreApplication::processEvents();
        QCOMPARE(arrived, 3);
    }
}

void TestGuiThreadEnd::nothingArrivesAfterTheEnd()
{
    int argumentCount = 1;
    char name[] = "ends";
    char *arguments[] = {name, nullptr};
    QObject card;
    int arrived = 0;
    Report report;
    {
        const QCoreApplication application(argumentCount, arguments);
        report = QSP::onGuiThread("report", &card, [&arrived](QObject *, int) { ++arrived; });
    }
    // Neither without an application nor in one that the screen has nothing to do with.
    report(1);
    const QCoreApplication application(argumentCount, arguments);
    report(2);
    QCoreApplication::processEvents();
    QCOMPARE(arrived, 0);
}

int main(int argc, char **argv)
{
    TestGuiThreadEnd test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_guithread_end.moc"
