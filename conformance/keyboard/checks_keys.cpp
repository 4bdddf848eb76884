#include "conformance/keyboard/keyboardchecks.h"
#include "conformance/keyboard/keyboardrun.h"

#include <algorithm>

namespace Conformance {

namespace {

constexpr VkbLayoutType Layouts[] = {VkbAddressDigits, VkbPlainDigits, VkbFullKeyboard};
constexpr int HoldMs = 2000;
constexpr int FewestRepeats = 3;

std::string nameOf(VkbLayoutType type)
{
    return "layout " + std::to_string(type);
}

void expectCharacters(KeyboardRun &run, Ruling &ruling, VkbLayoutType type)
{
    const KeyMap *keys = wantedKeys(run, type, ruling);
    if (!keys)
        return;
    const QString missing = keys->missing(KeyboardRun::charactersOf(type));
    ruling.expect(missing.isEmpty(), "setLayoutType",
                  nameOf(type) + " types " + KeyboardRun::charactersOf(type).toStdString(),
                  "no touch types " + missing.toStdString());
}

int presses(const QVector<KeyStroke> &strokes, int code)
{
    return static_cast<int>(std::count_if(strokes.cbegin(), strokes.cend(), [code](const KeyStroke &stroke) {
        return stroke.isPress() && stroke.code == code;
    }));
}

std::string told(const QVector<KeyStroke> &strokes)
{
    std::string text;
    for (const KeyStroke &stroke : strokes)
        text += (text.empty() ? "" : ", ") + stroke.told();
    return text.empty() ? "nothing" : text;
}

/// Shows the keys of @p type on a stage of their own, and hands over the stage and the place of @p found among them.
/// Without such a key the check is skipped.
template <class Use>
void withKey(KeyboardRun &run, Ruling &ruling, VkbLayoutType type, const KeyMap::Key *found, Use use)
{
    const KeyMap::Key *key = wantedKey(found, ruling);
    if (!key)
        return;
    Stage stage(run.library());
    if (isUsable(stage, ruling) && stage.show(type))
        use(stage, key->point);
}

/// The same with the key of a character that addresses have.
template <class Use> void withCharacter(KeyboardRun &run, Ruling &ruling, char character, Use use)
{
    withKey(run, ruling, VkbAddressDigits, run.keysOf(VkbAddressDigits).typing(QLatin1Char(character)), use);
}

/// One press and one release of the same key.
bool isOneKey(const QVector<KeyStroke> &strokes)
{
    return strokes.size() == 2 && strokes.constFirst().isPress() && !strokes.constLast().isPress() &&
           strokes.constFirst().code == strokes.constLast().code;
}

} // namespace

namespace KeyboardCheckFunctions {

void layoutAddress(KeyboardRun &run, Ruling &ruling)
{
    expectCharacters(run, ruling, VkbAddressDigits);
}

void layoutDigits(KeyboardRun &run, Ruling &ruling)
{
    expectCharacters(run, ruling, VkbPlainDigits);
}

void layoutFull(KeyboardRun &run, Ruling &ruling)
{
    expectCharacters(run, ruling, VkbFullKeyboard);
    const KeyMap *keys = wantedKeys(run, VkbFullKeyboard, ruling);
    ruling.expect(!keys || keys->hasCapitals(), "setLayoutType", "layout 5 types capitals",
                  "no touch types one");
}

void layoutHeight(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling) || !stage.show(VkbFullKeyboard))
        return;
    const QRectF before = stage.area();
    for (const VkbLayoutType type : Layouts) {
        stage.keyboard()->setLayoutType(type);
        Stage::waitFor([] { return true; }, 0);
        ruling.expect(qFuzzyCompare(stage.area().height(), before.height()), "setLayoutType",
                      "the height stays " + std::to_string(before.height()) + " in " + nameOf(type),
                      std::to_string(stage.area().height()));
    }
}

void layoutUnknown(KeyboardRun &run, Ruling &ruling)
{
    withCharacter(run, ruling, '.', [&ruling](Stage &stage, const QPointF &dot) {
        for (const int type : {-1, 1000}) {
            stage.keyboard()->setLayoutType(static_cast<VkbLayoutType>(type));
            stage.field()->forget();
            stage.tap(dot);
            ruling.expect(!stage.field()->strokes().isEmpty() &&
                              stage.field()->strokes().constFirst().text == QLatin1String("."),
                          "setLayoutType", "an unknown value leaves the keys: the dot is where it was",
                          told(stage.field()->strokes()));
        }
    });
}

void keyEvents(KeyboardRun &run, Ruling &ruling)
{
    const QVector<KeyMap::Key> &keys = run.keysOf(VkbAddressDigits).keys();
    for (const KeyMap::Key &key : keys) {
        ruling.expect(isOneKey(key.strokes), "a key", "one press and one release of it", told(key.strokes));
        const QString &text = key.strokes.constFirst().text;
        if (text.size() == 1 && text.at(0).isDigit())
            ruling.expect(key.strokes.constFirst().code == text.at(0).unicode(), "a key",
                          "the code of " + text.toStdString(), told(key.strokes));
    }
}

void keyReturn(KeyboardRun &run, Ruling &ruling)
{
    for (const VkbLayoutType type : Layouts) {
        if (const KeyMap *keys = wantedKeys(run, type, ruling))
            ruling.expect(keys->returning() != nullptr, "Return", "a key of " + nameOf(type),
                          "no touch sends it");
    }
}

void keyBackspace(KeyboardRun &run, Ruling &ruling)
{
    for (const VkbLayoutType type : Layouts) {
        if (const KeyMap *keys = wantedKeys(run, type, ruling))
            ruling.expect(keys->sending(Qt::Key_Backspace) != nullptr, "Backspace",
                          "a key of " + nameOf(type), "no touch sends it");
    }
}

void keyHide(KeyboardRun &run, Ruling &ruling)
{
    for (const VkbLayoutType type : Layouts) {
        const KeyMap *keys = wantedKeys(run, type, ruling);
        if (!keys)
            return;
        const KeyMap::Key *hide = keys->sending(HideKeyCode);
        if (!ruling.expect(hide != nullptr, "hide", "a key of " + nameOf(type) + " sends 0x100000",
                           "no touch sends it"))
            continue;
        ruling.expect(isOneKey(hide->strokes) && hide->strokes.constFirst().text.isEmpty(), "hide",
                      "one press and one release, without text", told(hide->strokes));
        Stage stage(run.library());
        if (!hide->isOnFirstPage || !stage.show(type))
            continue;
        stage.tap(hide->point);
        Stage::pause(Stage::HidingMs);
        ruling.expect(stage.keyboard()->isVisible(), "hide", "the keyboard leaves hiding to the screen",
                      "it hid by itself");
    }
}

void keyRepeat(KeyboardRun &run, Ruling &ruling)
{
    const KeyMap::Key *backspace = run.keysOf(VkbAddressDigits).sending(Qt::Key_Backspace);
    withKey(run, ruling, VkbAddressDigits, backspace, [&ruling](Stage &stage, const QPointF &point) {
        stage.press(point);
        const auto repeated = [&stage] {
            const QVector<KeyStroke> &strokes = stage.field()->strokes();
            return std::count_if(strokes.cbegin(), strokes.cend(), [](const KeyStroke &stroke) {
                return stroke.isPress() && stroke.code == Qt::Key_Backspace && stroke.isRepeat;
            });
        };
        const bool isRepeating = Stage::waitFor([&repeated] { return repeated() >= FewestRepeats; }, HoldMs);
        ruling.expect(isRepeating, "Backspace",
                      std::to_string(FewestRepeats) + " events of auto-repeat within " +
                          std::to_string(HoldMs) + " ms",
                      std::to_string(repeated()));
        stage.release(point);
        QCoreApplication::processEvents();
        const int atRelease = presses(stage.field()->strokes(), Qt::Key_Backspace);
        Stage::pause(Stage::HidingMs);
        const int later = presses(stage.field()->strokes(), Qt::Key_Backspace);
        ruling.expect(later == atRelease, "Backspace", "nothing after it was let go",
                      std::to_string(later - atRelease) + " events");
    });
}

void keyFocus(KeyboardRun &run, Ruling &ruling)
{
    withCharacter(run, ruling, '1', [&ruling](Stage &stage, const QPointF &point) {
        stage.press(point);
        ruling.expect(stage.field()->hasActiveFocus(), "a key", "the field has the focus while it is held",
                      "it lost it");
        stage.release(point);
        ruling.expect(stage.field()->hasActiveFocus(), "a key", "the field has the focus after it",
                      "it lost it");
    });
}

void keyTarget(KeyboardRun &run, Ruling &ruling)
{
    withCharacter(run, ruling, '1', [&ruling](Stage &stage, const QPointF &point) {
        stage.tap(point);
        stage.other()->forceActiveFocus();
        stage.field()->forget();
        stage.tap(point);
        ruling.expect(stage.field()->strokes().isEmpty() && !stage.other()->strokes().isEmpty(), "a key",
                      "goes to the field that has the focus now",
                      "the one before got " + told(stage.field()->strokes()));
    });
}

void keyMidst(KeyboardRun &run, Ruling &ruling)
{
    for (const VkbLayoutType type : {VkbAddressDigits, VkbFullKeyboard}) {
        const KeyMap::Key *returning = run.keysOf(type).returning();
        withKey(run, ruling, type, returning, [&ruling](Stage &stage, const QPointF &point) {
            stage.field()->whenPressed([&stage] {
                stage.keyboard()->setLayoutType(VkbPlainDigits);
                stage.keyboard()->show(false);
            });
            stage.tap(point);
            const auto isHidden = [&stage] { return !stage.keyboard()->isVisible(); };
            ruling.expect(Stage::waitFor(isHidden, Stage::PatienceMs), "show",
                          "false from within a key event hides", "the keyboard is still there");
        });
    }
}

void keyMouse(KeyboardRun &run, Ruling &ruling)
{
    withCharacter(run, ruling, '1', [&ruling](Stage &stage, const QPointF &point) {
        stage.click(point);
        ruling.expect(isOneKey(stage.field()->strokes()), "a key", "a click strikes it",
                      told(stage.field()->strokes()));
    });
}

} // namespace KeyboardCheckFunctions

} // namespace Conformance
