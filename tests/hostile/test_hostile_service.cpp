#include "tests/hostile/hands.h"
#include "tests/hostile/hostileservice.h"
#include "tests/support/scenecheck.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <malloc.h>

#include <ctime>

/// The whole screen over a service that keeps nothing of its contract, in the hands of people who know nothing.
///
/// PANEL_SEED is the first seed, PANEL_SEEDS how many there are, PANEL_ACTIONS how much is done with each.
class TestHostileService : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void survives_data();
    void survives();
    void keepsNothing();

private:
    static void allowMessages();
    /// Does so much, and ends as a host does.
    static void play(quint32 seed, int actions, bool fewLetters);

    QTemporaryDir m_temporary;
};

namespace {

// A sanitizer takes its own time, most of all for the stack behind every allocation, and so does an emulator.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(__arm__)
constexpr double longestSeconds = 60.0; // of one action, on this thread
constexpr int usualSeeds = 4;
constexpr int measuredRounds = 1;
#else
constexpr double longestSeconds = 1.0;
constexpr int usualSeeds = 12;
constexpr int measuredRounds = 6;
#endif
constexpr long largestGrowth = 200L * 1024;

int option(const char *name, int otherwise)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

// Time that this thread has worked. That of the clock on the wall would count what other programs do.
double secondsWorked()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Nothing under a sanitizer, whose own allocator it is; the one for addresses tells of what is lost.
long heapBytes()
{
    return static_cast<long>(mallinfo2().uordblks);
}

int entriesOf(const QString &directory)
{
    return QDir(directory).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

void TestHostileService::initTestCase()
{
    // Where the picture of the QR code goes; other tests write theirs at the same time.
    QVERIFY(m_temporary.isValid());
    qputenv("TMPDIR", m_temporary.path().toLocal8Bit());
}

void TestHostileService::allowMessages()
{
    // The one thing that the screen says of a service's values.
    allowMessage(
        QStringLiteral("^the serial number is too long for (any QR code|a QR code of \\d+ pixels)$"));
    // The toolkit's, of letters that the test's font cannot join.
    allowMessage(QStringLiteral("^  OpenType support missing for "));
}

void TestHostileService::play(quint32 seed, int actions, bool fewLetters)
{
    HostileService::begin(seed);
    if (fewLetters)
        HostileService::useFewLetters();
    Hands hands(seed);
    for (int i = 0; i < actions; ++i) {
        const double begin = secondsWorked();
        const char *done = hands.act();
        const double took = secondsWorked() - begin;
        QVERIFY2(
            took < longestSeconds,
            qPrintable(QStringLiteral("action %1, %2, took %3 s").arg(i).arg(QLatin1String(done)).arg(took)));
        const QString fault = hands.root() ? SceneCheck::faultBelow(hands.root()) : QString();
        QVERIFY2(fault.isEmpty(),
                 qPrintable(QStringLiteral("action %1, %2: ").arg(i).arg(QLatin1String(done)) + fault));
    }
    hands.leave();
    HostileService::waitIdle();
    QCoreApplication::processEvents();
}

void TestHostileService::survives_data()
{
    QTest::addColumn<quint32>("seed");
    const int first = option("PANEL_SEED", 1);
    const int seeds = option("PANEL_SEEDS", usualSeeds);
    for (int seed = first; seed < first + seeds; ++seed)
        QTest::addRow("seed %d", seed) << static_cast<quint32>(seed);
}

void TestHostileService::survives()
{
    QFETCH(const quint32, seed);
    allowMessages();
    play(seed, option("PANEL_ACTIONS", 250), false);
    QVERIFY(QGuiApplication::topLevelWindows().isEmpty());
}

void TestHostileService::keepsNothing()
{
    allowMessages();
    const auto playOn = [](int rounds) {
        for (int i = 0; i < rounds && !QTest::currentTestFailed(); ++i)
            play(1, 150, true);
    };
    // What is built, registered and drawn but once.
    playOn(measuredRounds);
    const long heap = heapBytes();
    const int files = entriesOf(QStringLiteral("/proc/self/fd"));
    const int threads = entriesOf(QStringLiteral("/proc/self/task"));
    playOn(measuredRounds);
    const long growth = heapBytes() - heap;
    QVERIFY2(growth < largestGrowth, qPrintable(QStringLiteral("grown by %1 bytes").arg(growth)));
    QCOMPARE(entriesOf(QStringLiteral("/proc/self/fd")), files);
    QCOMPARE(entriesOf(QStringLiteral("/proc/self/task")), threads);
    QCOMPARE(entriesOf(m_temporary.path()), 1);
}

int main(int argc, char **argv)
{
    PanelTest::prepareEnvironment();
    // Many seeds take longer than the test library grants. Who runs so many ends what hangs.
    if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))
        qputenv("QTEST_FUNCTION_TIMEOUT", "86400000");
    QGuiApplication application(argc, argv);
    PanelTest::prepareApplication();
    TestHostileService test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_hostile_service.moc"
