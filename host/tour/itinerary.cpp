#include "host/tour/itinerary.h"

#include "hmi/systemset.h"

namespace {

using HMI::SystemSet;
using Stops = std::vector<Stop>;

// Menu and page take turns on a screen that is narrower, and a keyboard leaves no room for a dialog on one that is
// lower.
constexpr int narrowBelow = 800;
constexpr int lowBelow = 300;

struct Visit {
    const Options &options;
    int adapters;
    /// One that is open or known to the panel.
    const char *network;

    bool isNarrow() const { return options.size.width() < narrowBelow; }
    bool isLow() const { return options.size.height() < lowBelow; }
    bool has(const char *card) const { return !options.hiddenCards.contains(QLatin1String(card)); }
    bool hasAdapter(SystemSet::NIC nic) const { return (adapters & nic) != 0; }
    bool hasGeneral() const { return has("brightness") || has("time") || has("buzzer"); }
    bool hasNetwork() const { return has("network") || has("defaultAdapter") || has("dns"); }
    /// The entry that every menu has.
    const char *entry() const
    {
        return options.applicationName == QLatin1String("vistor") ? "Exit" : "Reboot";
    }
};

void visitGeneral(Stops &stops, const Visit &visit)
{
    if (!visit.hasGeneral())
        return;
    stops.push_back({"general", {Do::page("General")}});
    const Action dim = Do::tapClass("QSP::BrightButton", 0);
    if (visit.has("brightness"))
        stops.push_back({"general-dimmed", {dim, dim}});
    if (visit.has("buzzer"))
        stops.push_back({"general-buzzer", {Do::tapClass("QSP::BeepSwitch", 0, "QSP::CardBuzzer")}});
    if (!visit.has("time"))
        return;
    stops.push_back({"general-clock-editor",
                     {Do::tapClass("QSP::BeepButton", 0, "QSP::CardTime"), Do::see("TimeEditPopup", "OK")}});
    stops.push_back({"general-clock-editor-keys", {Do::tapClass("QQuickTextInput", 0), Do::type("2031")}});
    stops.push_back({"general-clock-set", {Do::tapText("TimeEditPopup", "OK")}});
}

void visitWired(Stops &stops, const Visit &visit)
{
    stops.push_back(
        {"network",
         {Do::page("Network"), Do::tapText("CardNetwork", "LAN0"), Do::see("CardNetwork", "MAC")}});
    // The lowest field that can be edited: IP address and mask have four inputs each before it.
    stops.push_back({"network-address-keys", {Do::tapClass("QQuickTextInput", 8, "QSP::CardNetwork")}});
    stops.push_back({"network-address-typed", {Do::type("192.168.5.")}});
    stops.push_back({"network-address-left", {Do::tapKey("vkbKey_hide")}});
    if (visit.hasAdapter(SystemSet::LAN1))
        stops.push_back({"network-lan1", {Do::tapText("CardNetwork", "LAN1")}});
}

void visitTunnel(Stops &stops)
{
    stops.push_back({"network-vpn", {Do::tapText("CardNetwork", "VPN")}});
    const Action servers = Do::tapClass("QSP::ComboBox", 0, "QSP::CardNetwork");
    stops.push_back({"network-vpn-servers", {servers}});
    stops.push_back(
        {"network-vpn-connecting", {servers, Do::tapClass("QSP::BeepSwitch", 0, "QSP::CardNetwork")}});
    stops.push_back({"network-vpn-off", {Do::tapClass("QSP::BeepSwitch", 0, "QSP::CardNetwork")}});
}

void visitAdapters(Stops &stops, const Visit &visit)
{
    visitWired(stops, visit);
    if (visit.hasAdapter(SystemSet::WIFI))
        stops.push_back({"network-wifi", {Do::tapText("CardNetwork", "Wi-Fi")}});
    if (visit.hasAdapter(SystemSet::MOBILE_4G))
        stops.push_back({"network-4g", {Do::tapText("CardNetwork", "4G")}});
    if (visit.hasAdapter(SystemSet::VPN))
        visitTunnel(stops);
}

void visitDefaultAdapter(Stops &stops)
{
    const Action list = Do::tapClass("QSP::ComboBox", 0, "QSP::CardNIC");
    stops.push_back({"default-adapters", {Do::tapText("CardNetwork", "LAN0"), list}});
    const Action disable = Do::tapClass("QSP::BeepSwitch", 0, "QSP::CardNetwork");
    const Action test = Do::tapText("CardNIC", "Test");
    stops.push_back({"ping-failed", {list, disable, test, Do::see("CardNIC", "Test failed!")}});
    stops.push_back({"ping-busy", {Do::tapAside(), disable, test}});
    stops.push_back({"ping-result", {Do::tryUntil("CardNIC", "Test", "Test successful!", "Test failed!")}});
    stops.push_back({"ping-closed", {Do::tapAside()}});
}

void visitNetwork(Stops &stops, const Visit &visit)
{
    if (visit.has("network"))
        visitAdapters(stops, visit);
    else if (visit.hasNetwork())
        stops.push_back({"network", {Do::page("Network")}});
    // Its ping goes out over an adapter that is switched off and on.
    if (visit.has("network") && visit.has("defaultAdapter"))
        visitDefaultAdapter(stops);
}

void visitWifi(Stops &stops, const Visit &visit)
{
    // The way there is on the network card.
    if (!visit.hasAdapter(SystemSet::WIFI) || !visit.has("wifi") || !visit.has("network"))
        return;
    stops.push_back({"wifi-empty",
                     {Do::tapText("CardNetwork", "Wi-Fi"), Do::tapText("CardNetwork", "Wi-Fi Settings"),
                      Do::see("CardWifi", "Nearby Wi-Fi")}});
    stops.push_back({"wifi-scanning", {Do::tapProperty("QSP::CardWifi", "scanButton")}});
    stops.push_back(
        {"wifi-networks", {Do::seeReady("QSP::CardWifi", "scanButton"), Do::seeName("Maintenance")}});
    stops.push_back({"wifi-password", {Do::tapName("Maintenance"), Do::see("CardWifi", "Enter password")}});
    stops.push_back({"wifi-password-keys", {Do::tapClass("QQuickTextInput", 0), Do::type("guess")}});
    if (visit.isLow())
        stops.push_back({"wifi-password-typed", {Do::tapKey("vkbKey_hide")}});
    stops.push_back(
        {"wifi-connecting", {Do::tapText("CardWifi", "Connect"), Do::see("CardWifi", "Connecting")}});
    stops.push_back({"wifi-wrong-password", {Do::see("CardWifi", "Wrong password")}});
    // The first button of the dialog closes it.
    stops.push_back({"wifi-joining",
                     {Do::tapClass("QSP::BeepButton", 0, "QQuickPopupItem"), Do::tapName(visit.network),
                      Do::see("CardWifi", "Connecting")}});
    stops.push_back({"wifi-joined", {Do::seeGone("CardWifi", "Connecting"), Do::seeName(visit.network)}});
}

void visitOthers(Stops &stops, const Visit &visit)
{
    if (visit.has("version"))
        stops.push_back({"version", {Do::page("Version")}});
    if (visit.has("language"))
        stops.push_back({"language", {Do::page("Language")}});
}

// The restart that is asked about, and not done.
void visitRebootQuestion(Stops &stops)
{
    stops.push_back({"reboot-question",
                     {Do::menu(), Do::tapText("QSP::AppRootItem", "Reboot"),
                      Do::see("RebootDialog", "Restart the panel now?")}});
    stops.push_back({"reboot-cancelled",
                     {Do::seeEnabled("RebootDialog", "Cancel"), Do::tapText("RebootDialog", "Cancel"),
                      Do::seeGone("RebootDialog", "Restart the panel now?")}});
}

void visitLanguages(Stops &stops)
{
    stops.push_back(
        {"language-to-chinese",
         {Do::page("Language"), Do::tapName("简体中文"), Do::see("QSP::AppRootItem", "Language")}});
    stops.push_back(
        {"language-to-english", {Do::tapName("English"), Do::see("QSP::AppRootItem", "Language")}});
}

void visitSettings(Stops &stops, const Visit &visit)
{
    stops.push_back({visit.isNarrow() ? "menu" : "settings",
                     {Do::tapText("", "Settings"), Do::see("QSP::AppRootItem", visit.entry())}});
    visitGeneral(stops, visit);
    visitNetwork(stops, visit);
    visitWifi(stops, visit);
    visitOthers(stops, visit);
    if (visit.isNarrow())
        stops.push_back({"back-to-menu", {Do::menu(), Do::see("QSP::AppRootItem", visit.entry())}});
    if (!visit.options.isStrict)
        visitRebootQuestion(stops);
}

} // namespace

std::vector<Stop> itinerary(const Options &options, int adapters)
{
    Stops stops;
    stops.push_back({"operator", {}});
    visitSettings(stops, {options, adapters, "Works Hall Guests"});
    const bool hasLanguage = Visit{options, adapters, ""}.has("language");
    if (!options.isStrict && hasLanguage)
        visitLanguages(stops);
    stops.push_back({"operator-again", {Do::leave()}});

    // The panel was switched to Chinese elsewhere: the settings follow when they are opened.
    Stops chinese;
    visitSettings(chinese, {options, adapters, "Works Hall"});
    chinese.front().actions.insert(chinese.front().actions.begin(), Do::choose(Options::Language::Chinese));
    for (Stop &stop : chinese) {
        stop.picture += QLatin1String("-zh");
        stops.push_back(std::move(stop));
    }
    if (hasLanguage)
        stops.push_back(
            {"language-back-to-english",
             {Do::page("Language"), Do::tapName("English"), Do::see("QSP::AppRootItem", "Language")}});
    stops.push_back({"operator-at-last", {Do::leave()}});
    return stops;
}
