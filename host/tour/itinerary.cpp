#include "host/tour/itinerary.h"

#include "host/panelservice.h"

namespace {

using Action = std::function<void(Visitor &)>;

// --- What a visitor does ---

Action tapText(const char *context, const char *english)
{
    return [=](Visitor &visitor) { visitor.tapText(Visitor::said(context, english)); };
}

Action tapClass(const char *className, int index, const char *within = nullptr)
{
    return [=](Visitor &visitor) { visitor.tapClass(className, index, within); };
}

Action type(const char *characters)
{
    return [=](Visitor &visitor) { visitor.typeOnScreen(QLatin1String(characters)); };
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
    const Action dim = tapClass("QSP::BrightButton", 0);
    stops.push_back({"general-dimmed", {dim, dim, dim}});
    stops.push_back({"general-buzzer", {tapClass("QSP::BeepSwitch", 0, "QSP::CardBuzzer")}});
    stops.push_back({"general-clock-editor",
                     {tapClass("QSP::BeepButton", 0, "QSP::CardTime"), see("TimeEditPopup", "OK")}});
    stops.push_back({"general-clock-editor-keys", {tapClass("QQuickTextInput", 0), type("2031")}});
    stops.push_back({"general-clock-set", {tapText("TimeEditPopup", "OK")}});
}

void visitNetwork(std::vector<Stop> &stops)
{
    stops.push_back({"network", {page("Network")}});
}

void visitOthers(std::vector<Stop> &stops)
{
    stops.push_back({"version", {page("Version")}});
    stops.push_back({"language", {page("Language")}});
}

void visitSettings(std::vector<Stop> &stops, bool isNarrow)
{
    const Action open = tapText("", "Settings");
    if (isNarrow) {
        stops.push_back({"menu", {open, see("QSP::AppRootItem", "General")}});
        visitGeneral(stops);
    } else {
        const size_t first = stops.size();
        visitGeneral(stops);
        stops[first].actions.insert(stops[first].actions.begin(), open);
    }
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
    stops.push_back({"language-back-to-english",
                     {page("Language"), tapText("", "English"), see("QSP::AppRootItem", "Language")}});
    stops.push_back({"operator-at-last", {leave()}});
    return stops;
}
