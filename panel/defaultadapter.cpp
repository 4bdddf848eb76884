#include "panel/defaultadapter.h"

#include "panel/adapters.h"
#include "panel/servicelimits.h"
#include "shell/base/guithread.h"
#include "shell/base/logging.h"

namespace QSP {

DefaultAdapter::DefaultAdapter(Adapters &adapters, QObject *parent)
    : QObject(parent), m_adapters(adapters), m_limit(new AnswerLimit(ServiceLimits::ping, "pingLimit", this))
{
    connect(m_limit, &QTimer::timeout, this, [this] { report(m_awaitedTest, false); });
    // The service may take another one when the default is switched off.
    connect(&m_adapters, &Adapters::enabledChanged, this, [this] {
        m_current.forget();
        emit changed();
    });
}

QVector<NIC> DefaultAdapter::possible() const
{
    QVector<NIC> possible;
    for (const NIC nic : g_adapters) {
        if (nic != HMI::SystemSet::VPN && (m_adapters.present() & nic) && m_adapters.of(nic).isUp())
            possible.append(nic);
    }
    return possible;
}

NIC DefaultAdapter::current() const
{
    return m_current.get([] { return callService<&HMI::SystemSet::getDefaultNIC>(); });
}

void DefaultAdapter::choose(NIC nic)
{
    qCDebug(logNetwork, "default adapter: %s chosen", adapterLabel(nic));
    callService<&HMI::SystemSet::setDefaultNIC>(nic, false);
    // It may have been refused because the adapter vanished while the operator chose.
    read();
    dropTestOfFormer();
}

void DefaultAdapter::forget()
{
    m_current.forget();
    m_adapters.forget();
}

void DefaultAdapter::read()
{
    forget();
    emit changed();
}

void DefaultAdapter::startTest()
{
    const int test = ++m_lastTest;
    // The service's, whatever was read before.
    m_current.forget();
    m_tested = current();
    qCDebug(logNetwork, "ping %d: over %s", test, adapterLabel(m_tested));
    await(test);
    const auto done = onGuiThread("pingTest", this, [test](DefaultAdapter *adapter, bool hasReached) {
        adapter->report(test, hasReached);
    });
    callService<&HMI::SystemSet::pingTest>(m_tested, done);
}

void DefaultAdapter::await(int test)
{
    const bool wasTesting = isTesting();
    m_awaitedTest = test;
    if (isTesting())
        m_limit->start();
    else
        m_limit->stop();
    if (wasTesting != isTesting())
        emit testingChanged(isTesting());
}

void DefaultAdapter::dropTestOfFormer()
{
    if (isTesting() && current() != m_tested)
        await(0);
}

void DefaultAdapter::report(int test, bool hasReached)
{
    // Another one may have become the default elsewhere.
    m_current.forget();
    dropTestOfFormer();
    // A second report would bring back what the operator has closed.
    if (test == 0 || test != m_awaitedTest)
        return;
    await(0);
    qCDebug(logNetwork, "ping %d: %s", test, hasReached ? "answered" : "not answered");
    emit tested(hasReached);
}

} // namespace QSP
