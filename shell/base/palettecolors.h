#pragma once

#include <QtGui/QColor>

namespace QSP {

struct Theme;

/// The colours that more than one place of the screen has, by what they are for, as they are without a theme. A
/// colour of one place alone stands there.
struct PaletteColors {
    /// What is on, chosen or to be pressed.
    QColor accent{0x34, 0x82, 0xFF};
    /// The ground of a button that is to stand out: white stands out against it, as it would not against the accent.
    QColor strongAccent{0x1D, 0x6B, 0xE5};
    /// The border of a list that is open.
    QColor accentFrame{0x6E, 0xA2, 0xE2};
    /// The chosen row of a list.
    QColor accentTint{0xA8, 0xCD, 0xF1};
    /// A handle that is held.
    QColor accentGlow{0xBE, 0xDA, 0xFF};
    /// The frame of the field that is edited, results, and texts that are pressed like buttons.
    QColor focus{0x32, 0x69, 0xCE};
    /// Behind the cards.
    QColor background{0xF4, 0xF5, 0xF5};
    /// Cards, rows, dialogs and the menu.
    QColor surface{0xFF, 0xFF, 0xFF};
    /// A surface that is pressed, or the chosen one.
    QColor markedSurface{0xF2, 0xF3, 0xF5};
    QColor separator{0xE5, 0xE6, 0xEB};
    /// What a handle runs in, and the handle of the scroll bar.
    QColor track{0xC9, 0xCD, 0xD4};
    QColor title{0x2C, 0x2E, 0x30};
    QColor text{0x1D, 0x21, 0x29};
    /// Texts beside the main one, from the strongest to the weakest.
    QColor strongHint{0x4E, 0x59, 0x69};
    QColor hint{0x65, 0x6F, 0x7D};
    /// Also titles of dialogs, the outline of a field that waits, and the scroll bar that is pressed.
    QColor caption{0x86, 0x90, 0x9C};
    QColor disabledText{0xB4, 0xB4, 0xB4};
    /// Text in an entry field that can be edited.
    QColor fieldText{0x00, 0x00, 0x00};
    QColor fieldBorder{0xE2, 0xE2, 0xE2};
    /// Of dialogs, and of the boxes in them.
    QColor frame{0xE6, 0xE7, 0xE9};
    QColor success{0x00, 0xBC, 0x79};
    QColor failure{0xFF, 0x4D, 0x4F};

    /// The colours of @p theme, those that it does not tell following from those that it tells.
    static PaletteColors of(const Theme &theme);
};

} // namespace QSP
