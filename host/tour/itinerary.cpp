#include "host/tour/itinerary.h"

#include "host/panelservice.h"

namespace {

using Action = std::function<void(Visitor &)>;

// --- What a visitor does ---

Action tapText(const char *context, const char *english)
{
    return [=](Visitor &visitor) { visitor.tapText(Visitor::said(context, english)); };
}

Action see(const char *context, const char *english)
{
    return [=](Visitor &visitor) { visitor.waitFor(Visitor::said(context, english)); };
}

Action choose(Options::Language language)
{
    return [=](Visitor &) { PanelService::setLanguage(language); };
}

// The key beside the glass.
Action leave()
{
    return [](Visitor &visitor) { visitor.leaveSettings(); };
}

// In the title bar of a narrow screen.
void goBack(Visitor &visitor)
{
    visitor.tapAt(QPoint(20, 20));
}

Action page(const char *title)
{
    return [=](Visitor &visitor) {
        const QString text = Visitor::said("QSP::AppRootItem", title);
        if (!visitor.seesButton(text))
            goBack(visitor);
        visitor.tapText(text);
        visitor.waitFor(text);
    };
}

// --- The pages ---

void visitGeneral(std::vector<Stop> &stops)
{
    stops.push_back({"general", {page("General")}});
}

void visitNetwork(std::vector<Stop> &stops)
{
    stops.push_back({"network", {page("Network")}});
}

void visitOthers(std::vector<Stop> &stops)
{
    stops.push_back({"language", {page("Language")}});
    stops.push_back({"version", {page("Version")}});
}

void visitSettings(std::vector<Stop> &stops, bool isNarrow)
{
    stops.push_back(
        {isNarrow ? "menu" : "opened", {tapText("", "Settings"), see("QSP::AppRootItem", "General")}});
    visitGeneral(stops);
    visitNetwork(stops);
    visitOthers(stops);
    if (isNarrow)
        stops.push_back({"back-to-menu", {goBack, see("QSP::AppRootItem", "General")}});
}

} // namespace

std::vector<Stop> itinerary(bool isNarrow)
{
    std::vector<Stop> stops;
    stops.push_back({"operator", {}});
    visitSettings(stops, isNarrow);
    stops.push_back({"operator-again", {leave()}});

    // The panel was switched to Chinese elsewhere: the settings follow when they are opened.
    std::vector<Stop> chinese;
    visitSettings(chinese, isNarrow);
    chinese.front().actions.insert(chinese.front().actions.begin(), choose(Options::Language::Chinese));
    for (Stop &stop : chinese) {
        stop.picture += QLatin1String("-zh");
        stops.push_back(std::move(stop));
    }
    stops.push_back({"operator-at-last", {leave(), choose(Options::Language::English)}});
    return stops;
}
