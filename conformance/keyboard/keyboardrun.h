#pragma once

#include "conformance/keyboard/keymap.h"
#include "conformance/keyboard/ruling.h"
#include "conformance/witness.h"

#include <map>

namespace Conformance {

/// What the checks of one keyboard share.
class KeyboardRun
{
public:
    /// @p witness is told whenever a check that takes long has gone on.
    KeyboardRun(const KeyboardLibrary &library, Witness &witness) : m_library(library), m_witness(witness) {}

    const KeyboardLibrary &library() const { return m_library; }
    /// The keys of a layout, looked for when they are first asked for; at the size of a Stage.
    const KeyMap &keysOf(VkbLayoutType type);
    /// What the layout must be able to type.
    static QString charactersOf(VkbLayoutType type);

private:
    const KeyboardLibrary &m_library;
    Witness &m_witness;
    std::map<VkbLayoutType, KeyMap> m_keys;
};

/// Whether there is a keyboard that can be shown at all; all checks but the first build on it.
bool isUsable(Stage &stage, Ruling &ruling);
/// The keys of a layout; null, and the check is skipped, when the keyboard cannot be shown.
const KeyMap *wantedKeys(KeyboardRun &run, VkbLayoutType type, Ruling &ruling);
/// The key, with its place on the first page; else the check is skipped, since another one failed for it.
const KeyMap::Key *wantedKey(const KeyMap::Key *key, Ruling &ruling);

} // namespace Conformance
