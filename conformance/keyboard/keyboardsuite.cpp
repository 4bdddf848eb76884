#include "conformance/keyboard/keyboardchecklist.h"
#include "conformance/keyboard/keyboardchecks.h"
#include "conformance/keyboard/keyboardorder.h"
#include "conformance/keyboard/keyboardrun.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <string_view>

namespace Conformance {

namespace {

struct Made {
    const char *group;
    const char *name;
    void (*function)(KeyboardRun &, Ruling &);
};

constexpr std::array Functions = {
    Made{"window", "loader", &KeyboardCheckFunctions::windowLoader},
    Made{"window", "keyboard", &KeyboardCheckFunctions::windowSame},
    Made{"window", "separate", &KeyboardCheckFunctions::windowSeparate},
    Made{"window", "before", &KeyboardCheckFunctions::windowBefore},
    Made{"window", "ready", &KeyboardCheckFunctions::windowReady},
    Made{"window", "null", &KeyboardCheckFunctions::windowNull},
    Made{"window", "z", &KeyboardCheckFunctions::windowZ},
    Made{"window", "again", &KeyboardCheckFunctions::windowAgain},
    Made{"window", "deleted", &KeyboardCheckFunctions::windowDeleted},
    Made{"popup", "focus", &KeyboardCheckFunctions::popupFocus},
    Made{"popup", "stays", &KeyboardCheckFunctions::popupStays},
    Made{"popup", "shown", &KeyboardCheckFunctions::popupShown},
    Made{"popup", "once", &KeyboardCheckFunctions::popupOnce},
    Made{"popup", "geometry", &KeyboardCheckFunctions::popupGeometry},
    Made{"popup", "hidden", &KeyboardCheckFunctions::popupHidden},
    Made{"popup", "beside", &KeyboardCheckFunctions::popupBeside},
    Made{"popup", "below", &KeyboardCheckFunctions::popupBelow},
    Made{"popup", "above", &KeyboardCheckFunctions::popupAbove},
    Made{"popup", "place", &KeyboardCheckFunctions::popupPlace},
    Made{"layout", "address", &KeyboardCheckFunctions::layoutAddress},
    Made{"layout", "digits", &KeyboardCheckFunctions::layoutDigits},
    Made{"layout", "full", &KeyboardCheckFunctions::layoutFull},
    Made{"layout", "height", &KeyboardCheckFunctions::layoutHeight},
    Made{"layout", "unknown", &KeyboardCheckFunctions::layoutUnknown},
    Made{"keys", "events", &KeyboardCheckFunctions::keyEvents},
    Made{"keys", "return", &KeyboardCheckFunctions::keyReturn},
    Made{"keys", "hide", &KeyboardCheckFunctions::keyHide},
    Made{"keys", "backspace", &KeyboardCheckFunctions::keyBackspace},
    Made{"keys", "repeat", &KeyboardCheckFunctions::keyRepeat},
    Made{"keys", "focus", &KeyboardCheckFunctions::keyFocus},
    Made{"keys", "target", &KeyboardCheckFunctions::keyTarget},
    Made{"keys", "midst", &KeyboardCheckFunctions::keyMidst},
    Made{"keys", "mouse", &KeyboardCheckFunctions::keyMouse},
};

// Loading comes before the first that has a function, the end after the last.
constexpr std::size_t Before = 2;
constexpr const KeyboardCheckInfo &LoadInfo = KeyboardChecks[0];
constexpr const KeyboardCheckInfo &CompleteInfo = KeyboardChecks[1];
constexpr const KeyboardCheckInfo &EndInfo = KeyboardChecks.back();

constexpr bool haveSameNames()
{
    if (Functions.size() + Before + 1 != KeyboardChecks.size())
        return false;
    for (std::size_t i = 0; i < Functions.size(); ++i) {
        const KeyboardCheckInfo &info = KeyboardChecks[i + Before];
        if (std::string_view(Functions[i].group) != info.group ||
            std::string_view(Functions[i].name) != info.name)
            return false;
    }
    return true;
}
static_assert(haveSameNames(), "the list of checks and their functions differ");

void setDefault(const char *variable, const char *value)
{
    if (qEnvironmentVariableIsEmpty(variable))
        qputenv(variable, value);
}

Result resultFor(const char *group, const char *name)
{
    Result result;
    result.group = group;
    result.name = name;
    return result;
}

/// The checks without which there is nothing to check.
bool isLoaded(KeyboardLibrary &library, const std::string &path, Witness &witness)
{
    Ruling load(resultFor(LoadInfo.group, LoadInfo.name));
    witness.begin(load.result());
    const bool isThere = library.load(path);
    load.expect(isThere, "dlopen", LoadInfo.expectation, library.error());
    witness.end(load.result());
    if (!isThere)
        return false;

    Ruling complete(resultFor(CompleteInfo.group, CompleteInfo.name));
    witness.begin(complete.result());
    const bool isComplete = library.resolve();
    complete.expect(isComplete, "dlsym", CompleteInfo.expectation, library.error());
    witness.end(complete.result());
    return isComplete;
}

bool hasKeyboard(const KeyboardLibrary &library)
{
    QQuickWindow window;
    QVkbPluginLoader *loader = library.loaderOf(&window);
    return loader && library.keyboardOf(loader);
}

void makeChecks(const KeyboardLibrary &library, const KeyboardOrder &order, Witness &witness)
{
    KeyboardRun run(library, witness);
    for (const Made &made : Functions) {
        Ruling ruling(resultFor(made.group, made.name));
        const bool isWanted = order.groups.empty() || order.groups.count(made.group) > 0;
        if (!isWanted || order.isDone(ruling.result().title()))
            continue;
        witness.begin(ruling.result());
        // These two say themselves what it means that there is none.
        const bool goesWithout = made.function == &KeyboardCheckFunctions::windowLoader ||
                                 made.function == &KeyboardCheckFunctions::windowSame;
        if (goesWithout || hasKeyboard(library))
            made.function(run, ruling);
        else
            ruling.skip("this panel has no keyboard");
        witness.end(ruling.result());
    }
}

} // namespace

extern "C" __attribute__((visibility("default"))) void
panelConformanceKeyboardChecks(const KeyboardOrder &order, Witness &witness)
{
    setDefault("QT_QPA_PLATFORM", "offscreen");
    setDefault("QT_QUICK_BACKEND", "software");
    // The toolkit wants a place of its own, and warns when it is offered none.
    QTemporaryDir runtimeDirectory;
    setDefault("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()).constData());
    char name[] = "panelsettings-conformance";
    char *arguments[] = {name, nullptr};
    int count = 1;
    KeyboardLibrary library;
    {
        QGuiApplication application(count, arguments);
        if (!isLoaded(library, order.library, witness))
            return;
        makeChecks(library, order, witness);
        witness.begin(resultFor(EndInfo.group, EndInfo.name));
    }
}

} // namespace Conformance
