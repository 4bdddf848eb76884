#include "conformance/keyboard/keyboardrun.h"

namespace Conformance {

const KeyMap &KeyboardRun::keysOf(VkbLayoutType type)
{
    const auto known = m_keys.find(type);
    if (known != m_keys.end())
        return known->second;
    Stage stage(m_library);
    KeyMap keys(stage, type, charactersOf(type), [this] { m_witness.alive(); });
    Stage fresh(m_library);
    keys.look(fresh, type);
    return m_keys.emplace(type, std::move(keys)).first->second;
}

QString KeyboardRun::charactersOf(VkbLayoutType type)
{
    QString digits = QStringLiteral("0123456789");
    switch (type) {
    case VkbAddressDigits:
        return digits + QLatin1Char('.');
    case VkbPlainDigits:
        return digits;
    case VkbFullKeyboard:
        break;
    }
    return digits + QStringLiteral("abcdefghijklmnopqrstuvwxyz.:");
}

bool isUsable(Stage &stage, Ruling &ruling)
{
    if (stage.prepare())
        return true;
    ruling.skip("there is no popup or no item to look at");
    return false;
}

const KeyMap *wantedKeys(KeyboardRun &run, VkbLayoutType type, Ruling &ruling)
{
    const KeyMap &keys = run.keysOf(type);
    if (keys.wasShown())
        return &keys;
    ruling.skip("there is no keyboard on the glass to touch");
    return nullptr;
}

const KeyMap::Key *wantedKey(const KeyMap::Key *key, Ruling &ruling)
{
    if (key && key->isOnFirstPage)
        return key;
    ruling.skip("the key that this takes was not found");
    return nullptr;
}

} // namespace Conformance
