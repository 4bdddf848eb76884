#include "simulatortest.h"

#include <QtCore/QDir>

#include <ctime>
#include <random>

/// Scenario files with mistakes that nobody would think of: each is taken, or refused with line and reason, at once.
///
/// PANEL_SEED is the first seed, PANEL_MUTANTS how many files there are.
class TestSimulatorMutations : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void takenOrRefused();

private:
    QByteArray mutated(std::mt19937 *random) const;

    QVector<QByteArray> m_scenarios;
};

namespace {

// A sanitizer takes its own time, and so does an emulator.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(__arm__)
constexpr double longestSeconds = 60.0;
#else
constexpr double longestSeconds = 1.0;
#endif

int option(const char *name, int otherwise)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

int below(int count, std::mt19937 *random)
{
    return static_cast<int>((*random)() % static_cast<unsigned>(count));
}

double secondsWorked()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

QByteArray piece(std::mt19937 *random)
{
    static const QVector<QByteArray> pieces = {"{",
                                               "}",
                                               "[",
                                               "]",
                                               ",",
                                               ":",
                                               R"(")",
                                               R"(\)",
                                               R"(\u0000)",
                                               R"(\ud800)",
                                               "\n",
                                               "\r",
                                               "\t",
                                               "null",
                                               "true",
                                               "-1",
                                               "-0",
                                               "1e999",
                                               "1.5",
                                               "99999999999999999999",
                                               "\xEF\xBB\xBF",
                                               "\xFF",
                                               "\xC3",
                                               R"({"hex": "4"})",
                                               R"({"repeat": 2})",
                                               R"({"text": "A", "repeat": 99999})",
                                               "[[[[[[[[[[[[[[[[[[[[",
                                               R"("faults": {"scanWifi": {}})",
                                               "/*",
                                               "//",
                                               QByteArray(1, '\0')};
    return pieces[below(pieces.size(), random)];
}

void lookAtPanel()
{
    for (const SystemSet::NIC nic :
         {SystemSet::LAN0, SystemSet::WIFI, SystemSet::MOBILE_4G, SystemSet::VPN}) {
        service().getIp(nic);
        service().getDns(nic);
        service().getMac(nic);
        service().isNicEnabled(nic);
    }
    service().currentWifiSsid();
    service().getSerialNumber();
}

} // namespace

void TestSimulatorMutations::initTestCase()
{
    const QDir directory(QStringLiteral(PANEL_SCENARIOS));
    const QStringList names = directory.entryList({QStringLiteral("*.json")});
    for (const QString &name : names) {
        QFile file(directory.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_scenarios << file.readAll();
    }
    QVERIFY(m_scenarios.size() > 10);
}

void TestSimulatorMutations::init()
{
    beginWatch();
    HmiSimulator::reset();
}

QByteArray TestSimulatorMutations::mutated(std::mt19937 *random) const
{
    const auto any = [this, random] { return m_scenarios[below(m_scenarios.size(), random)]; };
    QByteArray text = any();
    for (int i = 1 + below(4, random); i > 0 && !text.isEmpty(); --i) {
        const int at = below(text.size(), random);
        const int length = 1 + below(20, random);
        switch (below(8, random)) {
        case 0:
            text[at] = static_cast<char>(below(256, random));
            break;
        case 1:
            text.remove(at, length);
            break;
        case 2:
            text.insert(at, text.mid(at, length));
            break;
        case 3:
            text.truncate(at);
            break;
        case 4: {
            const QByteArray other = any();
            text = text.left(at) + other.mid(below(other.size(), random));
            break;
        }
        case 5:
            text.replace(QByteArray(1, static_cast<char>('0' + below(10, random))), piece(random));
            break;
        default:
            text.insert(at, piece(random));
            break;
        }
    }
    return text;
}

void TestSimulatorMutations::takenOrRefused()
{
    const QRegularExpression refusal(QStringLiteral("^s:([1-9]\\d*): [^\\n]+$"));
    const int first = option("PANEL_SEED", 1);
    const int mutants = option("PANEL_MUTANTS", 10000);
    int taken = 0;
    for (int seed = first; seed < first + mutants; ++seed) {
        std::mt19937 random(static_cast<unsigned>(seed));
        const QByteArray text = mutated(&random);
        HmiSimulator::setSerialNumber("as it was");
        std::string reason;
        const double begin = secondsWorked();
        const bool isTaken = HmiSimulator::loadScenarioText(text.toStdString(), &reason, "s");
        const double took = secondsWorked() - begin;
        const auto about = [seed, &reason](const char *what) {
            return QStringLiteral("seed %1: %2: %3")
                .arg(seed)
                .arg(QLatin1String(what), QString::fromStdString(reason));
        };
        QVERIFY2(took < longestSeconds, qPrintable(about("takes too long")));
        if (isTaken) {
            ++taken;
            lookAtPanel();
            continue;
        }
        const QRegularExpressionMatch match = refusal.match(QString::fromStdString(reason));
        QVERIFY2(match.hasMatch(), qPrintable(about("no line and reason")));
        QVERIFY2(match.captured(1).toInt() <= 1 + text.count('\n'), qPrintable(about("no such line")));
        QVERIFY2(service().getSerialNumber() == "as it was", qPrintable(about("refused and taken")));
    }
    // Else the mistakes are of one kind.
    QVERIFY2(taken > mutants / 50 && taken < mutants / 2, qPrintable(QString::number(taken)));
}

PANEL_TEST_MAIN(TestSimulatorMutations)

#include "test_simulator_mutations.moc"
