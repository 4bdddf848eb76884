#include "linux/wifilist.h"

#include "linux/askall.h"
#include "linux/nmnames.h"
#include "linux/wifiname.h"

#include <QtDBus/QDBusArgument>

#include <cstring>

namespace HmiLinux {

namespace {

// The daemon has its own secrets at hand. It must not keep the operator from the list while it looks for others.
constexpr int g_secretsLimit = 1000;

/// The list, wiped when the last copy of what waits for it goes.
class Draft
{
public:
    explicit Draft(const QVector<WifiNetwork> &networks)
    {
        records.reserve(std::size_t(networks.size()));
        for (const WifiNetwork &network : networks) {
            const bool asks = needsPassword(network.security) && network.profile.isEmpty();
            records.push_back({ssidOf(network.name), std::string(),
                               static_cast<unsigned char>(network.strength),
                               static_cast<unsigned char>(asks ? 1 : 0)});
        }
    }
    ~Draft()
    {
        for (HMI::SystemSet::SsidInfo &record : records)
            ::explicit_bzero(record.password.data(), record.password.size());
    }
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;

    WifiRecords records;
};

} // namespace

QDBusMessage secretsQuestion(const QString &profile)
{
    QDBusMessage question = Nm::call(profile, Nm::profile(), "GetSecrets");
    question << wifiSecuritySection();
    return question;
}

void makeWifiList(const QDBusConnection &bus, const QVector<WifiNetwork> &networks, QObject *context,
                  const std::function<void(const WifiRecords &)> &done)
{
    const auto draft = std::make_shared<Draft>(networks);
    QVector<QDBusMessage> questions;
    QVector<std::size_t> places;
    for (int i = 0; i < networks.size(); ++i) {
        if (networks.at(i).profile.isEmpty() || !needsPassword(networks.at(i).security))
            continue;
        questions.append(secretsQuestion(networks.at(i).profile));
        places.append(std::size_t(i));
    }
    const auto take = [draft, places](int place, const QDBusMessage &answer) {
        if (isError(answer))
            return; // the daemon joins with what it keeps, whether or not it tells
        const SharedSecret secret = passwordIn(qdbus_cast<Sections>(answer.arguments().value(0)));
        if (secret)
            draft->records.at(places.at(place)).password = secret->utf8();
    };
    askAll(
        bus, questions, context, take, [draft, done] { done(draft->records); }, g_secretsLimit);
}

} // namespace HmiLinux
