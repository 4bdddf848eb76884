#include "simulatortest.h"

#include <sys/resource.h>

#include <ctime>

/// Scenario files made to hurt: each is refused with line and reason, at once and without making what it asks for.
class TestSimulatorHostileScenarios : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        beginWatch();
    }

    void refused_data();
    void refused();
    void textsInAll();
    void keysAreToldBriefly_data();
    void keysAreToldBriefly();
    void whatIsAllowedLoads();
    void byteOrderMark();
};

namespace {

constexpr int AlmostFourMebibytes = 4 * 1024 * 1024 - 1000;
// A sanitizer takes its own time, most of all for the stack behind every allocation, and so does an emulator.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(PANEL_EMULATED)
constexpr double LongestSeconds = 60.0;
#else
constexpr double LongestSeconds = 1.0;
#endif
constexpr long LargestGrowth = 128L * 1024; // KiB; the reader's own trees of the largest texts are below it

/// A text of about @p size bytes: @p part again and again.
QByteArray filled(const QByteArray &part, int size)
{
    return part.repeated(size / part.size());
}

QByteArray object(const char *key, const QByteArray &value)
{
    return QByteArray("{\n\"") + key + "\": " + value + '}';
}

QByteArray serialNumber(int bytes, int repeat)
{
    return object("serialNumber", R"({"text": ")" + filled("A", bytes) + R"(", "repeat": )" +
                                      QByteArray::number(repeat) + '}');
}

QByteArray network(const char *key, const QByteArray &value)
{
    return "{\"wifi\": {\n\"networks\": [\n{\"" + QByteArray(key) + "\": " + value + "}]}}";
}

QByteArray lan0(const QByteArray &members)
{
    return "{\"adapters\": {\"LAN0\": {\n" + members + "}}}";
}

/// @p count keys that are all different, one a line.
QByteArray differentKeys(int count)
{
    QByteArray text = "{\n";
    for (int i = count; i > 0; --i)
        text += "\"k" + QByteArray::number(i) + (i > 1 ? "\":0,\n" : "\":0\n");
    return text + '}';
}

/// Time that this thread has worked. That of the clock on the wall would count what other programs do.
double secondsWorked()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

long largestKibibytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// Why the simulator refuses @p text; fails the test when that takes more than it may.
QString reasonFor(const QByteArray &text)
{
    const std::string json = text.toStdString();
    const long before = largestKibibytes();
    const double begin = secondsWorked();
    std::string reason;
    const bool isLoaded = HmiSimulator::loadScenarioText(json, &reason, "s");
    const double seconds = secondsWorked() - begin;
    const long growth = largestKibibytes() - before;
    if (seconds > LongestSeconds)
        return QStringLiteral("took %1 s").arg(seconds);
    if (growth > LargestGrowth)
        return QStringLiteral("took %1 KiB").arg(growth);
    return isLoaded ? QStringLiteral("loaded") : QString::fromStdString(reason);
}

} // namespace

void TestSimulatorHostileScenarios::refused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, const QByteArray &text, const char *error) {
        QTest::newRow(name) << text << QString::fromUtf8(error);
    };
    row("more bytes than an int counts", serialNumber(42950, 100000),
        "s:2: \"serialNumber\" has 4295000000 bytes, may have 100000");
    row("2 GB of serial number", serialNumber(20000, 100000),
        "s:2: \"serialNumber\" has 2000000000 bytes, may have 100000");
    row("bytes of a large file, repeated", serialNumber(AlmostFourMebibytes, 100000),
        "s:2: \"serialNumber\" has 419330400000 bytes, may have 100000");
    row("network name", network("name", R"({"text": "AB", "repeat": 100000})"),
        "s:3: \"name\" has 200000 bytes, may have 33");
    row("password", network("password", R"({"text": "0123456789", "repeat": 100000})"),
        "s:3: \"password\" has 1000000 bytes, may have 100000");
    row("stored password", network("stored", R"({"text": "0123456789", "repeat": 100000})"),
        "s:3: \"stored\" has 1000000 bytes, may have 100000");
    row("joined", "{\n\"wifi\": {\n\"joined\": {\"text\": \"AB\", \"repeat\": 100000}}}",
        "s:3: \"joined\" has 200000 bytes, may have 33");
    row("long hex", object("serialNumber", R"({"hex": ")" + filled("41", 4000000) + R"("})"),
        "s:2: \"serialNumber\" has 2000000 bytes, may have 100000");
    row("long text", object("serialNumber", '"' + filled("A", 4000000) + '"'),
        "s:2: \"serialNumber\" has 4000000 bytes, may have 100000");

    row("2 MB, nested 200 deep",
        object("a", filled("[", 200) + filled("[1],", 2000000) + "1" + filled("]", 200)),
        "s:2: is nested deeper than 16 levels");
    row("objects in objects", filled("{\"a\":\n", 600) + "1" + filled("}", 100),
        "s:17: is nested deeper than 16 levels");
    row("brackets alone", filled("[", AlmostFourMebibytes), "s:1: is nested deeper than 16 levels");
    row("unknown and deep, 16 levels", object("a", filled("[", 15) + filled("]", 15)),
        "s:2: unknown key \"a\"");

    row("many values", object("a", "[\n" + filled("1,", AlmostFourMebibytes) + "1]"),
        "s:3: has more than 200000 values");
    row("many empty lists", object("a", "[\n" + filled("[],\n", AlmostFourMebibytes) + "1]"),
        "s:100002: has more than 200000 values");
    row("many keys", differentKeys(100000), "s:2: unknown key \"k100000\"");
    row("many networks", object("wifi", "{\"networks\": [" + filled("{},", 270000) + "{}]}"),
        "s:2: \"networks\" must be a list of 0 to 10000");
    row("many numbers for networks", object("wifi", "{\"networks\": [" + filled("1,", 120000) + "1]}"),
        "s:2: \"networks\" must be a list of 0 to 10000");
    row("crowd", R"({"wifi": {"crowd": 2000000000}})",
        "s:1: \"crowd\" must be a whole number from 0 to 10000");
    row("many reports", R"({"faults": {"connectWifi": {"reports": [)" + filled("1,", 120000) + "1]}}}",
        "s:1: \"reports\" must be a list of 1 to 100");
    row("one key again and again", "{" + filled("\"buzzer\": true,\n", 500000) + "\"buzzer\": true}",
        "s:2: key \"buzzer\" stands twice");

    row("address of dots", lan0(R"("stored": {"ip": ")" + filled(".", 4000000) + R"("})"),
        R"(s:2: "ip" must be an address like "192.168.1.10")");
    row("address of digits", lan0(R"("stored": {"ip": "1.2.3.)" + filled("0", 4000000) + R"("})"),
        R"(s:2: "ip" must be an address like "192.168.1.10")");
    row("hardware address", lan0(R"("mac": ")" + filled("00:", 4000000) + R"(00")"),
        R"(s:2: "mac" must be a hardware address like "02:1B:44:11:3A:B7")");
    row("choice", object("language", '"' + filled("zh", 4000000) + '"'),
        R"(s:2: "language" must be one of "zh", "en")");
    row("long number", object("brightness", filled("1", 4000000)), "s:2: not JSON: illegal number");
    row("delay", object("delays", "{\"dhcp\": 99999999999999999999}"),
        "s:2: \"dhcp\" must be a whole number from 0 to 600000");
    row("a string that does not end", "{\"" + filled("a\\\"", AlmostFourMebibytes),
        "s:1: not JSON: unterminated string");
    row("backslash at the end", "{\"a\\", "s:1: not JSON: unterminated string");
}

void TestSimulatorHostileScenarios::refused()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, error);
    QCOMPARE(reasonFor(text), error);
}

void TestSimulatorHostileScenarios::textsInAll()
{
    // Each of them may be; all together would take 100 MB.
    QByteArray networks;
    for (int i = 0; i < 1000; ++i)
        networks += R"({"password": {"text": "01234567890123456789", "repeat": 5000}})"
                    "\n,";
    networks.chop(1);
    QCOMPARE(reasonFor("{\"wifi\": {\"networks\": [" + networks + "]}}"),
             QStringLiteral("s:42: \"password\" makes the texts of the scenario longer than 4194304 bytes"));
}

void TestSimulatorHostileScenarios::keysAreToldBriefly_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const QString cut = QString(40, 'k') + QString::fromUtf8("…");
    QTest::newRow("unknown") << QByteArray("{\n\"" + filled("k", 2000000) + "\": 1}")
                             << QStringLiteral("s:2: unknown key \"%1\"").arg(cut);
    const QByteArray twice = '"' + filled("k", 1000000) + "\": 1";
    QTest::newRow("twice, where none may stand")
        << QByteArray("{\"comment\": {" + twice + ",\n" + twice + "}}")
        << QStringLiteral("s:1: \"comment\" must be a text");
    QTest::newRow("terminal") << QByteArray(R"({"\u001b]0;mine\u0007\n\u009b": 1})")
                              << QString::fromUtf8("s:1: unknown key \"�]0;mine���\"");
}

void TestSimulatorHostileScenarios::keysAreToldBriefly()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, error);
    QCOMPARE(reasonFor(text), error);
}

void TestSimulatorHostileScenarios::whatIsAllowedLoads()
{
    QByteArray networks;
    for (int i = 0; i < 10000; ++i) {
        networks +=
            R"({"name": {"text": "N"}, "password": {"text": "P", "repeat": 100}, "signal": 1, "drift": 1,
                        "stored": {"hex": "41"}, "answers": true, "needsPassword": 1},)";
    }
    networks.chop(1);
    QCOMPARE(reasonFor("{\"wifi\": {\"networks\": [" + networks + "], \"crowd\": 10000}}"),
             QStringLiteral("loaded"));
    QCOMPARE(HmiSimulator::panel().wifi.networks.size(), std::size_t(20000));
    QCOMPARE(HmiSimulator::panel().wifi.networks[9999].password, std::string(100, 'P'));

    QCOMPARE(reasonFor(serialNumber(20, 5000)), QStringLiteral("loaded"));
    QCOMPARE(service().getSerialNumber().size(), std::size_t(100000));
    QCOMPARE(reasonFor(serialNumber(20, 5001)),
             QStringLiteral("s:2: \"serialNumber\" has 100020 bytes, may have 100000"));
    QCOMPARE(reasonFor(serialNumber(20, 0)), QStringLiteral("loaded"));
    QCOMPARE(service().getSerialNumber(), std::string());
}

void TestSimulatorHostileScenarios::byteOrderMark()
{
    QCOMPARE(reasonFor("\xEF\xBB\xBF{\"brightness\": 7}"), QStringLiteral("loaded"));
    QCOMPARE(int(service().bright()), 7);
    QCOMPARE(reasonFor("\xEF\xBB\xBF{\n\"brigth\": 7}"), QStringLiteral("s:2: unknown key \"brigth\""));
}

PANEL_TEST_MAIN(TestSimulatorHostileScenarios)
#include "test_simulator_hostile_scenarios.moc"
