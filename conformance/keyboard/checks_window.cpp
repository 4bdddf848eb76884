#include "conformance/keyboard/keyboardchecks.h"
#include "conformance/keyboard/keyboardrun.h"

namespace Conformance {

namespace {

std::string told(const void *pointer)
{
    return pointer ? "one" : "none";
}

std::string told(double number)
{
    return QString::number(number).toStdString();
}

} // namespace

namespace KeyboardCheckFunctions {

void windowLoader(KeyboardRun &run, Ruling &ruling)
{
    QQuickWindow one;
    QQuickWindow two;
    const QVkbPluginLoader *first = run.library().loaderOf(&one);
    ruling.expect(first != nullptr, "instance", "a loader", "null");
    ruling.expect(first == run.library().loaderOf(&one), "instance", "the same one for the same window",
                  "another one");
    ruling.expect(first != run.library().loaderOf(&two), "instance", "another one for another window",
                  "the same one");
}

void windowSame(KeyboardRun &run, Ruling &ruling)
{
    QQuickWindow window;
    QVkbPluginLoader *loader = run.library().loaderOf(&window);
    const QVkbInterface *first = run.library().keyboardOf(loader);
    if (!first) {
        ruling.cannotComply("vkb() is null: this panel has no keyboard");
        return;
    }
    ruling.expect(first == run.library().keyboardOf(loader), "vkb", "the same keyboard each time",
                  "another one");
}

void windowSeparate(KeyboardRun &run, Ruling &ruling)
{
    QQuickWindow one;
    QQuickWindow two;
    ruling.expect(run.library().keyboardOf(&one) != run.library().keyboardOf(&two), "vkb",
                  "another keyboard for another window", "the same one");
}

void windowBefore(KeyboardRun &run, Ruling &ruling)
{
    QQuickWindow window;
    QVkbInterface *keyboard = run.library().keyboardOf(&window);
    ruling.expect(!keyboard->popup(), "popup", "null before initialize()", told(keyboard->popup()));
    ruling.expect(!keyboard->item(), "item", "null before initialize()", told(keyboard->item()));
    keyboard->setLayoutType(VkbPlainDigits);
    keyboard->show(true);
    ruling.expect(!keyboard->isVisible(), "isVisible", "false before initialize()", "true");
    keyboard->show(false);
}

void windowReady(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    stage.prepare();
    QVkbInterface *keyboard = stage.keyboard();
    QQuickItem *item = keyboard->item();
    // Through the meta-object, which knows what a pointer of the wrong slot points to.
    const auto *popup = qobject_cast<QQuickPopup *>(reinterpret_cast<QObject *>(keyboard->popup()));
    if (!ruling.expect(popup != nullptr, "popup", "a popup after initialize()", told(popup)) ||
        !ruling.expect(qobject_cast<QQuickItem *>(reinterpret_cast<QObject *>(item)) != nullptr, "item",
                       "an item after initialize()", told(item)) ||
        !popup || !item)
        return;
    const QQuickItem *content = popup->contentItem();
    const bool isOfPopup =
        content && (content == item || content->isAncestorOf(item) || item->isAncestorOf(content));
    ruling.expect(isOfPopup, "item", "an item of the popup", "one from elsewhere");
    ruling.expect(!keyboard->isVisible(), "initialize", "shows nothing", "the keyboard is visible");
}

void windowNull(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    const QQuickPopup *popup = stage.popup();
    const qreal z = popup->z();
    stage.keyboard()->initialize(nullptr, Stage::PopupZ * 2);
    if (ruling.expect(stage.popup() == popup, "initialize", "a null window leaves the popup", "another one"))
        ruling.expect(qFuzzyCompare(popup->z(), z), "initialize", "a null window leaves its height",
                      told(popup->z()));
}

void windowZ(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    for (const int z : {Stage::PopupZ, 20000, 1}) {
        stage.keyboard()->initialize(stage.window(), z);
        ruling.expect(qFuzzyCompare(stage.popup()->z(), qreal(z)), "initialize",
                      "z of the popup is " + std::to_string(z), told(stage.popup()->z()));
    }
}

void windowAgain(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    const QQuickPopup *popup = stage.popup();
    const QQuickItem *item = stage.keyboard()->item();
    stage.keyboard()->initialize(stage.window(), Stage::PopupZ);
    ruling.expect(stage.popup() == popup, "initialize", "the same popup the second time", "another one");
    ruling.expect(stage.keyboard()->item() == item, "initialize", "the same item the second time",
                  "another one");
}

void windowDeleted(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    stage.show(VkbFullKeyboard);
    const QPointer<QObject> popup = reinterpret_cast<QObject *>(stage.popup());
    // A key is down.
    stage.press(stage.area().center());
    stage.dropWindow();

    QVkbInterface *keyboard = stage.keyboard();
    ruling.expect(!popup, "popup", "is gone with its window", "it still exists");
    ruling.expect(!keyboard->popup(), "popup", "null without the window", told(keyboard->popup()));
    ruling.expect(!keyboard->item(), "item", "null without the window", told(keyboard->item()));
    ruling.expect(!keyboard->isVisible(), "isVisible", "false without the window", "true");
    keyboard->setLayoutType(VkbPlainDigits);
    keyboard->show(true);
    ruling.expect(!keyboard->isVisible(), "show", "shows nothing without the window", "isVisible is true");
    keyboard->show(false);
    Stage::pause(Stage::HidingMs); // past the time at which a held key would repeat
}

} // namespace KeyboardCheckFunctions

} // namespace Conformance
