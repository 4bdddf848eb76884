#include "linux/adapterwriter.h"

#include "linux/ask.h"
#include "linux/log.h"
#include "linux/nmnames.h"
#include "linux/profilebook.h"
#include "linux/profilechange.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>

namespace HmiLinux {

using HMI::SystemSet;

namespace {

// Long enough for a page that writes all its fields, short enough not to be noticed.
constexpr int g_gatherTime = 200;
constexpr int g_graceTime = 3000;
// A daemon was met (1.42) that took changed servers over without putting them in force, shortly after an activation.
constexpr int g_checkTime = 1500;

} // namespace

AdapterWriter::AdapterWriter(std::size_t place, Sections blank, const State *state, ProfileBook *book,
                             QObject *parent)
    : QObject(parent)
    , m_place(place)
    , m_blank(std::move(blank))
    , m_state(state)
    , m_book(book)
    , m_bus(QString())
    , m_gather(this)
    , m_grace(this)
    , m_check(this)
    , m_activation(this)
    , m_requests(std::make_unique<QObject>(this))
{
    m_gather.setObjectName(QStringLiteral("gather"));
    m_gather.setSingleShot(true);
    m_gather.setInterval(g_gatherTime);
    connect(&m_gather, &QTimer::timeout, this, &AdapterWriter::writeGathered);
    m_grace.setSingleShot(true);
    m_grace.setInterval(g_graceTime);
    connect(&m_grace, &QTimer::timeout, this,
            [this] { answer(!m_wanted.dhcp || m_state->read()->adapters.at(m_place).live.ip != 0); });
    m_check.setSingleShot(true);
    m_check.setInterval(g_checkTime);
    connect(&m_check, &QTimer::timeout, this, [this] {
        if (!isInForce())
            activate(m_state->read()->adapters.at(m_place).profile,
                     QStringLiteral("what was changed is not in force"));
    });
    connect(&m_activation, &Activation::ended, this, &AdapterWriter::activated);
}

void AdapterWriter::attach(const QDBusConnection &bus)
{
    m_bus = bus;
}

void AdapterWriter::interrupt()
{
    m_requests = std::make_unique<QObject>(this);
    m_activation.cancel();
    m_grace.stop();
    m_check.stop();
    takeAsked();
    answer(false);
    m_heldDevice.clear();
    if (m_writing && std::exchange(m_again, false)) {
        // What was to be written after this goes with it.
        m_number = m_state->read()->wishes.at(m_place).number;
        m_settling = false;
    }
    if (m_writing && !m_settling)
        settle();
}

void AdapterWriter::gather()
{
    m_gathered = m_state->read()->wishes.at(m_place).number;
    m_gather.start();
}

void AdapterWriter::writeGathered()
{
    // Whose first half alone is wished by now is still being asked for: its gather() is on its way.
    const bool isWhole = m_state->read()->wishes.at(m_place).number <= m_gathered;
    if (isWhole && !m_gather.isActive())
        write();
}

void AdapterWriter::finish()
{
    if (m_gather.isActive())
        write();
}

void AdapterWriter::writeDhcp(const OnDhcp &done)
{
    if (done)
        m_asked.push_back(done);
    m_draft.forget();
    m_activateAsked = true;
    write();
}

void AdapterWriter::writeEnabled()
{
    m_activateAsked = true;
    write();
}

void AdapterWriter::write()
{
    m_gather.stop();
    if (m_writing) {
        m_again = true;
        return;
    }
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    if (snapshot->round == 0) {
        m_again = true; // until it is known what there is
        return;
    }
    const Wish &wish = snapshot->wishes.at(m_place);
    m_now = snapshot->adapters.at(m_place);
    m_number = wish.number;
    m_persist = wish.persist;
    m_writing = true;
    takeAsked();
    if (!m_now.known && m_now.profile.isEmpty())
        return fail(QStringLiteral("there is no such adapter at the moment"));
    m_wanted = wanted(m_now, wish);
    if (isWireless() && m_wanted.enabled != m_now.values.enabled)
        switchRadio();
    else
        proceed();
}

void AdapterWriter::switchRadio()
{
    const QDBusMessage question = Nm::set(Nm::path(), Nm::service(), "WirelessEnabled", m_wanted.enabled);
    ask(m_bus, question, m_requests.get(), [this](const QDBusMessage &answer) {
        if (isError(answer)) {
            qCWarning(networkLog, "%s stays as it is: %s", qPrintable(name()), qPrintable(reasonOf(answer)));
            m_wanted.enabled = m_now.values.enabled;
        }
        m_now.values.enabled = m_wanted.enabled;
        proceed();
    });
}

void AdapterWriter::proceed()
{
    // A lease may be had anew with the profile of somebody else that is in force; only a change needs one of ours.
    const QString path = m_now.hasOwn() ? m_now.profile : m_now.activeProfile;
    const bool needsProfile =
        !isWireless() && m_activate && path.isEmpty() && m_now.deviceState > Nm::Unavailable;
    if (m_wanted != m_now.values || needsProfile)
        store();
    else
        stored(path);
}

ProfileValues AdapterWriter::wanted(const AdapterState &now, const Wish &wish)
{
    ProfileValues values = wish.over(now.values);
    values.stored = now.values.stored;
    if (wish.hasAddresses()) {
        const Addresses addresses = m_draft.over(now.values.stored, wish);
        const QString conflict = conflictOf(addresses);
        if (conflict.isEmpty()) {
            values.stored = addresses;
            m_draft.forget();
        } else {
            qCWarning(networkLog, "%s keeps its addresses: %s", qPrintable(name()), qPrintable(conflict));
            m_draft.keep(wish, addresses);
        }
    }
    // Servers that are those of the lease are no choice of somebody's.
    if (wish.dns && now.values.dns == Dns() && *wish.dns == now.liveDns)
        values.dns = {};
    return values;
}

void AdapterWriter::store()
{
    m_check.stop();
    if (m_wanted.isDefault != m_now.values.isDefault)
        spreadDefault();
    ProfileValues besides = m_wanted;
    besides.isDefault = m_now.values.isDefault;
    if (m_now.profile.isEmpty() && !m_now.others.isEmpty() && besides == m_now.values)
        return settle(); // the joined network is somebody else's
    if (m_now.profile.isEmpty() && isWireless())
        return fail(QStringLiteral("the panel keeps no network that they would be for"));
    if (m_now.profile.isEmpty())
        return add();
    update();
}

void AdapterWriter::spreadDefault()
{
    for (const QString &path : qAsConst(m_now.others)) {
        const Profile *profile = m_book->byPath(path);
        if (profile == nullptr || profile->values.isDefault == m_wanted.isDefault)
            continue;
        ProfileValues values = profile->values;
        values.isDefault = m_wanted.isDefault;
        changeProfile(
            m_bus, path, Nm::ToDisk, m_requests.get(),
            [values](const Sections &settings) { return withValues(settings, values); },
            [](const QDBusMessage &updated) {
                if (isError(updated))
                    qCWarning(networkLog, "a network keeps its part in the default route: %s",
                              qPrintable(reasonOf(updated)));
            });
    }
}

void AdapterWriter::update()
{
    const auto changed = [this](Sections settings) {
        if (m_now.isBoundElsewhere) {
            const QString key = QStringLiteral("interface-name");
            settings[QStringLiteral("connection")][key] =
                m_blank.value(QStringLiteral("connection")).value(key);
        }
        ProfileValues values = m_wanted;
        values.enabled |= isWireless(); // the radio is what is switched
        return withValues(settings, values);
    };
    changeProfile(m_bus, m_now.profile, m_persist ? Nm::ToDisk : Nm::InMemory, m_requests.get(), changed,
                  [this](const QDBusMessage &updated) {
                      if (isError(updated))
                          return refused(updated);
                      const QString path = m_now.profile;
                      m_book->readAgain(path, [this, path] { stored(path); });
                  });
}

void AdapterWriter::add()
{
    QDBusMessage question = Nm::call(Nm::settingsPath(), Nm::settings(), "AddConnection2");
    question << QVariant::fromValue(withValues(m_blank, m_wanted))
             << uint(m_persist ? Nm::ToDisk : Nm::InMemory) << QVariantMap();
    ask(m_bus, question, m_requests.get(), [this](const QDBusMessage &added) {
        if (isError(added))
            return refused(added);
        const QString path = qdbus_cast<QDBusObjectPath>(added.arguments().value(0)).path();
        qCInfo(profileLog, "%s has a profile of the panel from now on", qPrintable(name()));
        m_book->readAgain(path, [this, path] { stored(path); });
    });
}

void AdapterWriter::stored(const QString &path)
{
    if (!m_writing || m_settling)
        return; // the daemon went meanwhile
    if (m_wanted != m_now.values || m_activate)
        apply(path);
    settle();
}

void AdapterWriter::apply(const QString &path)
{
    if (!m_now.known)
        return answer(!m_wanted.dhcp);
    if (isWireless() && (!m_wanted.enabled || m_now.deviceState < Nm::Preparing))
        return answer(!m_wanted.dhcp); // in force with the next network
    if (!m_wanted.enabled) {
        switchOff(m_now);
        return answer(!m_wanted.dhcp);
    }
    putInForce(path);
    // After that: by itself the daemon would put it in force at once, and we once more.
    // An adapter that was switched off stays off otherwise when its cable comes back.
    if (m_activate)
        setAutoconnect(m_now.device, true);
}

void AdapterWriter::putInForce(const QString &path)
{
    if (m_now.deviceState <= Nm::Unavailable)
        return answer(!m_wanted.dhcp); // the daemon does so as soon as there is a cable
    const bool isInForce = m_now.activeProfile == path && m_now.deviceState == Nm::Activated;
    // The servers of a lease come with a lease.
    const bool needsLease = m_wanted.dhcp && m_wanted.dns == Dns() && m_now.values.dns != Dns();
    if (isInForce && !m_activate && !needsLease) {
        ProfileValues kept = m_now.values;
        kept.stored = m_wanted.stored;
        // Static addresses are only kept while a lease is in force.
        if (!m_wanted.dhcp || kept != m_wanted)
            reapply(path);
        return;
    }
    m_grace.stop();
    m_activation.start(m_bus, path, m_now.device);
}

void AdapterWriter::reapply(const QString &path)
{
    QDBusMessage question = Nm::call(m_now.device, Nm::device(), "Reapply");
    question << QVariant::fromValue(Sections()) << qulonglong(0) << uint(0);
    ask(m_bus, question, m_requests.get(), [this, path](const QDBusMessage &reapplied) {
        if (isError(reapplied))
            activate(path, reasonOf(reapplied));
        else
            m_check.start();
    });
}

bool AdapterWriter::isInForce() const
{
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    const AdapterState &now = snapshot->adapters.at(m_place);
    if (!now.known || now.deviceState != Nm::Activated)
        return true; // its next activation puts it in force
    if (!m_wanted.dhcp && now.live != m_wanted.stored)
        return false;
    return m_wanted.dns == Dns() || now.liveDns == m_wanted.dns;
}

void AdapterWriter::activate(const QString &path, const QString &why)
{
    qCInfo(networkLog, "%s is put in force anew: %s", qPrintable(name()), qPrintable(why));
    m_activation.start(m_bus, path, m_now.device);
}

void AdapterWriter::switchOff(const AdapterState &now)
{
    m_activation.cancel();
    // Profiles that others made for it may fit too, now or when its cable comes.
    setAutoconnect(now.device, false);
    if (now.deviceState < Nm::Preparing)
        return;
    ask(m_bus, Nm::call(now.device, Nm::device(), "Disconnect"), m_requests.get(),
        [this](const QDBusMessage &disconnected) {
            if (isError(disconnected))
                qCWarning(networkLog, "%s stays on: %s", qPrintable(name()),
                          qPrintable(reasonOf(disconnected)));
        });
}

void AdapterWriter::holdOff()
{
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    const AdapterState &now = snapshot->adapters.at(m_place);
    if (isWireless() || now.device == m_heldDevice)
        return;
    m_heldDevice = now.device;
    const bool wasSwitchedOff = now.hasOwn() && !now.values.enabled;
    if (now.known && wasSwitchedOff && now.autoconnects && !isWriting() &&
        snapshot->wishes.at(m_place).isEmpty())
        switchOff(now);
}

void AdapterWriter::setAutoconnect(const QString &device, bool on)
{
    const QDBusMessage question = Nm::set(device, Nm::device(), "Autoconnect", on);
    ask(m_bus, question, m_requests.get(), [this, on](const QDBusMessage &set) {
        if (isError(set))
            qCInfo(networkLog, "%s may not stay %s: %s", qPrintable(name()), on ? "on" : "off",
                   qPrintable(reasonOf(set)));
    });
}

void AdapterWriter::settle()
{
    // A further write begins with a snapshot that knows of this one, or it would make the profile a second time.
    m_settling = true;
    m_isLate = false;
    emit settled(m_number);
}

void AdapterWriter::refused(const QDBusMessage &error)
{
    const bool wasLate = std::exchange(m_isLate, isUnanswered(error));
    if (!wasLate && !m_isLate)
        return fail(reasonOf(error));
    // What was asked for may be stored yet, and then without being in force; asked for again, it may be refused for
    // being stored.
    if (!wasLate) {
        qCWarning(networkLog, "the settings of %s wait for the daemon: %s", qPrintable(name()),
                  qPrintable(reasonOf(error)));
        answer(false);
    }
    m_activateAsked = true;
    QTimer::singleShot(RetryTime, m_requests.get(), [this] {
        m_writing = false;
        m_again = false;
        write();
    });
}

void AdapterWriter::fail(const QString &why)
{
    qCWarning(networkLog, "the settings of %s stay as they are: %s", qPrintable(name()), qPrintable(why));
    answer(false);
    settle();
}

void AdapterWriter::activated(const QString &why)
{
    if (!why.isEmpty()) {
        qCInfo(networkLog, "%s is not up: %s", qPrintable(name()), qPrintable(why));
        // Static addresses wait for a cable; for nothing else.
        return answer(!m_wanted.dhcp && m_activation.wasUnplugged());
    }
    // Who is told asks for the addresses at once.
    m_endRound = m_state->read()->round;
    m_grace.start();
}

void AdapterWriter::deviceChanged(const QString &device, uint state, uint reason)
{
    if (device == m_activation.device())
        m_activation.deviceChanged(state, reason);
}

void AdapterWriter::published()
{
    if (std::exchange(m_settling, false))
        m_writing = false;
    if (!m_writing && std::exchange(m_again, false)) {
        if (m_activateAsked)
            write();
        else
            writeGathered();
    }
    if (!m_grace.isActive())
        return;
    const std::shared_ptr<const Snapshot> snapshot = m_state->read();
    const AdapterState &now = snapshot->adapters.at(m_place);
    const bool isTold = m_wanted.dhcp ? now.live.ip != 0 : now.live == m_wanted.stored;
    if (snapshot->round == m_endRound || now.deviceState != Nm::Activated || !isTold)
        return;
    m_grace.stop();
    answer(true);
}

void AdapterWriter::takeAsked()
{
    m_activate = std::exchange(m_activateAsked, false);
    m_done.insert(m_done.end(), m_asked.begin(), m_asked.end());
    m_asked.clear();
}

void AdapterWriter::answer(bool succeeded)
{
    std::vector<OnDhcp> done;
    done.swap(m_done);
    for (const OnDhcp &report : done)
        report(succeeded ? SystemSet::DHCP_OK : SystemSet::DHCP_FAILED);
}

} // namespace HmiLinux
