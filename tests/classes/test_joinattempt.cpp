#include "tests/classes/joinscene.h"

#include <QtGui/QGuiApplication>

using QSP::JoinAttempt;
using State = JoinAttempt::State;
using Report = JoinAttempt::Report;

namespace {

bool isFailure(Report news)
{
    return news == Report::Offline || news == Report::TimedOut || news == Report::WrongPassword;
}

template <class Enum> QVector<Enum> allOf()
{
    QVector<Enum> values;
    const QMetaEnum type = QMetaEnum::fromType<Enum>();
    for (int i = 0; i < type.keyCount(); ++i)
        values << static_cast<Enum>(type.value(i));
    return values;
}

State failedBy(Report report)
{
    return report == Report::Offline    ? State::Offline
           : report == Report::TimedOut ? State::TimedOut
                                        : State::WrongPassword;
}

/// What is to follow, told report by report; the table tells it state by state.
State expected(State state, Report report)
{
    const bool isUnderWay = state == State::Asked || state == State::Connecting;
    const bool hasFailed =
        state == State::Offline || state == State::TimedOut || state == State::WrongPassword;
    const bool isHeard = state != State::Idle && state != State::Overdue;
    switch (report) {
    case Report::Offline:
    case Report::TimedOut:
    case Report::WrongPassword:
        return isHeard ? failedBy(report) : state;
    case Report::Connecting:
        return state == State::Asked ? State::Connecting : state;
    case Report::Connected:
        return isUnderWay || hasFailed ? State::AwaitingName : state;
    case Report::Unknown:
        return state;
    case Report::NameKnown:
        return state == State::AwaitingName ? State::AwaitingLease : state;
    case Report::AddressKnown:
        return state == State::AwaitingName ? State::Joined : state;
    case Report::Lease:
        return state == State::AwaitingLease ? State::Joined : state;
    case Report::LimitReached:
        if (isUnderWay)
            return State::Overdue;
        return state == State::AwaitingName || state == State::AwaitingLease ? State::Joined : state;
    case Report::Reset:
        return State::Idle;
    case Report::NewAttempt:
        return State::Asked;
    }
    return state;
}

} // namespace

/// Every report in every state. No window.
class TestJoinAttempt : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void table_data();
    void table();
};

void TestJoinAttempt::init()
{
    beginWatch();
    JoinScene::init();
}

void TestJoinAttempt::table_data()
{
    QTest::addColumn<State>("state");
    QTest::addColumn<Report>("news");
    const auto states = allOf<State>();
    const auto reports = allOf<Report>();
    for (const State state : states) {
        for (const Report news : reports)
            QTest::addRow("%s x %s", nameOf(state), nameOf(news)) << state << news;
    }
}

void TestJoinAttempt::table()
{
    QFETCH(State, state);
    QFETCH(Report, news);
    const State next = expected(state, news);
    QCOMPARE(nameOf(JoinAttempt::after(state, news)), nameOf(next));

    JoinScene scene;
    scene.reach(state);
    QCOMPARE(nameOf(scene.state()), nameOf(state));
    const bool wasUnderWay = scene.attempt().isUnderWay();
    QCOMPARE(wasUnderWay, state == State::Asked || state == State::Connecting);
    HmiSimulator::clearJournal();
    QSignalSpy states(&scene.attempt(), &JoinAttempt::stateChanged);
    QSignalSpy underWay(&scene.attempt(), &JoinAttempt::underWayChanged);
    QSignalSpy joined(&scene.attempt(), &JoinAttempt::joined);
    QSignalSpy wasRead(&scene.link, &QSP::WifiLink::wasRead);
    scene.deliver(news);

    QCOMPARE(nameOf(scene.state()), nameOf(next));
    const bool entered = next != state || news == Report::NewAttempt;
    QCOMPARE(states.size(), entered ? 1 : 0);
    QCOMPARE(joined.size(), entered && next == State::Joined ? 1 : 0);
    QCOMPARE(underWay.size(), scene.attempt().isUnderWay() == wasUnderWay ? 0 : 1);
    if (!underWay.isEmpty())
        QCOMPARE(underWay[0][0].toBool(), scene.attempt().isUnderWay());
    // Once where the report tells that something has become of the link.
    QCOMPARE(wasRead.size(),
             entered && (isFailure(news) || news == Report::Connected || news == Report::Lease ||
                         news == Report::LimitReached || news == Report::Reset)
                 ? 1
                 : 0);
    QCOMPARE(Journal::calls("setDHCP").size(), entered && next == State::AwaitingLease ? 1 : 0);
    QCOMPARE(Journal::calls("connectWifi").size(), news == Report::NewAttempt ? 1 : 0);
    const bool isAwaiting =
        scene.attempt().isUnderWay() || next == State::AwaitingName || next == State::AwaitingLease;
    QCOMPARE(scene.limit()->isActive(), isAwaiting);
}

PANEL_TEST_MAIN(TestJoinAttempt)

#include "test_joinattempt.moc"
