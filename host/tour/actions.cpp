#include "host/tour/actions.h"

#include "host/panelservice.h"

namespace Do {

namespace {

void tapReturnButton(Visitor &visitor)
{
    visitor.tapAt(QPoint(20, 20));
}

// On a narrow screen at most two steps lead back to it.
void leadToMenu(Visitor &visitor)
{
    const auto isThere = [&visitor] {
        return visitor.seesButton(Visitor::said("QSP::AppRootItem", "Reboot")) ||
               visitor.seesButton(Visitor::said("QSP::AppRootItem", "Exit"));
    };
    for (int i = 0; i < 2 && !isThere(); ++i)
        tapReturnButton(visitor);
}

} // namespace

Action tapText(const char *context, const char *english)
{
    return [=](Visitor &visitor) { visitor.tapText(Visitor::said(context, english)); };
}

Action tapName(const char *text)
{
    return [=](Visitor &visitor) { visitor.tapText(QString::fromUtf8(text)); };
}

Action tapClass(const char *className, int index, const char *within)
{
    return [=](Visitor &visitor) { visitor.tapClass(className, index, within); };
}

Action tapProperty(const char *className, const char *property)
{
    return [=](Visitor &visitor) { visitor.tapProperty(className, property); };
}

Action tapKey(const char *objectName)
{
    return [=](Visitor &visitor) { visitor.tapName(QLatin1String(objectName)); };
}

Action type(const char *characters)
{
    return [=](Visitor &visitor) { visitor.typeOnScreen(QLatin1String(characters)); };
}

Action see(const char *context, const char *english)
{
    return [=](Visitor &visitor) { visitor.waitFor(Visitor::said(context, english)); };
}

Action seeName(const char *text)
{
    return [=](Visitor &visitor) { visitor.waitFor(QString::fromUtf8(text)); };
}

Action seeGone(const char *context, const char *english)
{
    return [=](Visitor &visitor) { visitor.waitUntilGone(Visitor::said(context, english)); };
}

Action seeEnabled(const char *context, const char *english)
{
    return [=](Visitor &visitor) { visitor.waitUntilEnabled(Visitor::said(context, english)); };
}

Action seeReady(const char *className, const char *property)
{
    return [=](Visitor &visitor) { visitor.waitForProperty(className, property); };
}

Action tapAside()
{
    return [](Visitor &visitor) { visitor.tapAt(QPoint(3, visitor.window()->height() - 3)); };
}

Action page(const char *title)
{
    return [=](Visitor &visitor) {
        const QString text = Visitor::said("QSP::AppRootItem", title);
        leadToMenu(visitor);
        visitor.tapText(text);
        visitor.waitFor(text);
    };
}

Action tryUntil(const char *context, const char *button, const char *success, const char *failure)
{
    return [=](Visitor &visitor) {
        const QString succeeded = Visitor::said(context, success);
        const QString failed = Visitor::said(context, failure);
        constexpr int mostTries = 10;
        for (int i = 0; i < mostTries; ++i) {
            visitor.waitForEither(succeeded, failed);
            if (!visitor.sees(failed))
                return;
            tapAside()(visitor);
            visitor.tapText(Visitor::said(context, button));
        }
        visitor.waitFor(succeeded);
    };
}

Action menu()
{
    return leadToMenu;
}

Action leave()
{
    return [](Visitor &visitor) { visitor.leaveSettings(); };
}

Action choose(Options::Language language)
{
    return [=](Visitor &) { PanelService::setLanguage(language); };
}

} // namespace Do
