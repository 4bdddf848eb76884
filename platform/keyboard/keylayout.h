#pragma once

#include <QtCore/QChar>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <vector>

#include "qvkb/qvkbpluginloader.h"

namespace StandIn {

/// What a key does. Only Character carries a character of its own.
enum class KeyRole {
    Character,
    Backspace, ///< repeats while it is held
    Clear,     ///< empties the field, if the field knows Qt::Key_Clear
    Enter,
    Hide,
    Shift,   ///< once, locked, off
    Symbols, ///< turns to the page of symbols
    Letters, ///< turns back to the letters
};

/// One key of a page. @c cell is its place in the grid of the page, in grid
/// units. The whole cell is the touch target; cells of a page never overlap.
struct KeySpec {
    KeyRole role = KeyRole::Character;
    QChar character;
    QRectF cell;
};

/// The keys that are on the glass at the same time.
struct KeyPage {
    qreal columns = 0;   ///< width of the grid
    qreal rows = 0;      ///< height of the grid
    qreal maxAspect = 0; ///< a grid unit is at most this much wider than it is high
    std::vector<KeySpec> keys;
};

/// Whether there are keys for @p type.
bool isKnownLayout(VkbLayoutType type);

/// The page of @p type, which must be known. Only the full keyboard has symbols;
/// for the others @p symbols changes nothing. The page lives as long as the process.
const KeyPage &keyPage(VkbLayoutType type, bool symbols);

/// A name for @p spec that is unique in its page: the character itself ("a",
/// also while shift shows "A"), or the word for what the key does.
QString keyName(const KeySpec &spec);

} // namespace StandIn
