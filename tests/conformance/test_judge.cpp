#include "tests/support/paneltest.h"

#include "conformance/judge.h"

#include <QtGui/QGuiApplication>

#include <chrono>
#include <cstdlib>
#include <sstream>
#include <thread>

#include <unistd.h>

using namespace Conformance;

/// Nothing that becomes of a process passes unnoticed, whenever it happens.
class TestJudge : public PanelTest
{
    Q_OBJECT

private slots:
    void whatEndsWellIsDone();
    void aDeathWithinACheckFailsIt();
    void aDeathBetweenChecksFails();
    void anExitBetweenChecksFails();
    void aHangBetweenChecksFails();
    void aLibraryThatCannotBeLoadedIsTheEnd();
    void theRestIsMadeAfterADeathBetweenChecks();
    void aDeathThatComesAgainAndAgainHasAnEnd();
};

namespace {

// Nobody hangs who is merely slow on a machine that does much else.
constexpr std::chrono::milliseconds Long{60000};
constexpr std::chrono::milliseconds Short{2000};

Result resultOf(const char *group, const char *name)
{
    Result result;
    result.group = group;
    result.name = name;
    return result;
}

void make(const Past &past, Witness &witness, const char *name)
{
    const Result result = resultOf("dns", name);
    if (past.report.has(result.title()))
        return;
    witness.begin(result);
    witness.end(result);
}

void endWell(Witness &witness)
{
    witness.begin(resultOf("life", "end"));
}

// A child of this process has its toolkit without its threads: that can neither be ended nor be judged for leaks.
void leaveWithoutEnding()
{
    ::on_exit([](int status, void *) { ::_exit(status); }, nullptr);
}

/// The titles of the results, and what they are if they have not passed.
QString outcomeOf(const Judge::Work &work, std::chrono::milliseconds limit = Long)
{
    std::ostringstream out;
    Judge judge("lib.so", limit, out);
    QStringList titles;
    const Judge::Work apart = [&work](const Past &past, Witness &witness) {
        leaveWithoutEnding();
        work(past, witness);
    };
    for (const Result &result : judge.judge(apart).results()) {
        QString title = QString::fromStdString(result.title());
        if (!result.findings.empty())
            title += QStringLiteral(": ") + QString::fromStdString(result.findings.front().answer);
        titles.append(title);
    }
    return titles.join(QStringLiteral(", "));
}

[[noreturn]] void die()
{
    std::_Exit(3);
}

} // namespace

void TestJudge::whatEndsWellIsDone()
{
    QCOMPARE(outcomeOf([](const Past &past, Witness &witness) {
                 make(past, witness, "first");
                 endWell(witness);
             }),
             QStringLiteral("dns.first, life.end"));
}

void TestJudge::aDeathWithinACheckFailsIt()
{
    QCOMPARE(outcomeOf([](const Past &past, Witness &witness) {
                 const Result first = resultOf("dns", "first");
                 if (!past.report.has(first.title())) {
                     witness.begin(first);
                     die();
                 }
                 endWell(witness);
             }),
             QStringLiteral("dns.first: it ended with exit code 3, life.end"));
}

void TestJudge::aDeathBetweenChecksFails()
{
    QCOMPARE(outcomeOf([](const Past &past, Witness &witness) {
                 make(past, witness, "first");
                 die();
             }),
             QStringLiteral("dns.first, life.end: it ended with exit code 3"));
}

void TestJudge::anExitBetweenChecksFails()
{
    QCOMPARE(outcomeOf([](const Past &past, Witness &witness) {
                 make(past, witness, "first");
                 std::_Exit(EXIT_SUCCESS);
             }),
             QStringLiteral("dns.first, life.end: it ended by exit()"));
}

void TestJudge::aLibraryThatCannotBeLoadedIsTheEnd()
{
    QCOMPARE(outcomeOf([](const Past &, Witness &witness) {
                 Result result = resultOf("members", "load");
                 witness.begin(result);
                 result.verdict = Verdict::Failed;
                 witness.end(result);
             }),
             QStringLiteral("members.load"));
}

void TestJudge::aHangBetweenChecksFails()
{
    const auto work = [](const Past &past, Witness &witness) {
        make(past, witness, "first");
        std::this_thread::sleep_for(std::chrono::hours(1));
    };
    QCOMPARE(outcomeOf(work, Short), QStringLiteral("dns.first, life.end: it has hung for 2000 ms"));
}

void TestJudge::theRestIsMadeAfterADeathBetweenChecks()
{
    QCOMPARE(outcomeOf([](const Past &past, Witness &witness) {
                 const bool isFirst = past.report.results().empty();
                 make(past, witness, "first");
                 if (isFirst)
                     die();
                 make(past, witness, "second");
                 endWell(witness);
             }),
             QStringLiteral("dns.first, life.end: it ended with exit code 3, dns.second"));
}

void TestJudge::aDeathThatComesAgainAndAgainHasAnEnd()
{
    QCOMPARE(outcomeOf([](const Past &, Witness &) { die(); }),
             QStringLiteral("life.end: it ended with exit code 3"));
}

PANEL_TEST_MAIN(TestJudge)
#include "test_judge.moc"
