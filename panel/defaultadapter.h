#pragma once

#include "panel/nic.h"
#include "panel/reading.h"

#include <QtCore/QObject>
#include <QtCore/QVector>

namespace QSP {

class Adapters;
class AnswerLimit;

/// The adapter of the panel's default route: which can be it, which is, and whether it reaches the outside
/// world.
///
/// A test is one of the adapter that is the default when it is started. The newest one counts, and its first
/// report; it is forgotten when another adapter becomes the default. GUI thread only.
class DefaultAdapter : public QObject
{
    Q_OBJECT

public:
    /// @p adapters must outlive it.
    DefaultAdapter(Adapters &adapters, QObject *parent);

    /// Those that are present and enabled, in the order of g_adapters. Never the VPN.
    QVector<NIC> possible() const;
    /// What the service has; it need not be one of those.
    NIC current() const;
    /// Writes the operator's choice. The service may refuse it, which the next look shows.
    void choose(NIC nic);

    /// A new moment, also for the adapters: what was read counts no more.
    void forget();
    /// forget(), and lets everybody look again.
    void read();

    void startTest();
    bool isTesting() const { return m_awaitedTest != 0; }

signals:
    /// There is reason to look again.
    void changed();
    void testingChanged(bool isTesting);
    void tested(bool hasReached);

private:
    void report(int test, bool hasReached);
    void await(int test);
    void dropTestOfFormer();

    Adapters &m_adapters;
    Reading<NIC> m_current;
    AnswerLimit *m_limit;
    int m_lastTest = 0;
    int m_awaitedTest = 0; ///< 0 while no report is due
    NIC m_tested = g_noAdapter;
};

} // namespace QSP
