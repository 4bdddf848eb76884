#include "host/vnc/keysym.h"

#include <algorithm>
#include <array>

namespace {

struct Special {
    quint32 symbol;
    Qt::Key code;
    char text;
    Qt::KeyboardModifier modifier;
};

constexpr std::array<Special, 24> specials{{
    {0xff08, Qt::Key_Backspace, '\b', Qt::NoModifier}, {0xff09, Qt::Key_Tab, '\t', Qt::NoModifier},
    {0xff0d, Qt::Key_Return, '\r', Qt::NoModifier},    {0xff1b, Qt::Key_Escape, 0, Qt::NoModifier},
    {0xff50, Qt::Key_Home, 0, Qt::NoModifier},         {0xff51, Qt::Key_Left, 0, Qt::NoModifier},
    {0xff52, Qt::Key_Up, 0, Qt::NoModifier},           {0xff53, Qt::Key_Right, 0, Qt::NoModifier},
    {0xff54, Qt::Key_Down, 0, Qt::NoModifier},         {0xff55, Qt::Key_PageUp, 0, Qt::NoModifier},
    {0xff56, Qt::Key_PageDown, 0, Qt::NoModifier},     {0xff57, Qt::Key_End, 0, Qt::NoModifier},
    {0xff63, Qt::Key_Insert, 0, Qt::NoModifier},       {0xff8d, Qt::Key_Enter, '\r', Qt::NoModifier},
    {0xffe1, Qt::Key_Shift, 0, Qt::ShiftModifier},     {0xffe2, Qt::Key_Shift, 0, Qt::ShiftModifier},
    {0xffe3, Qt::Key_Control, 0, Qt::ControlModifier}, {0xffe4, Qt::Key_Control, 0, Qt::ControlModifier},
    {0xffe7, Qt::Key_Meta, 0, Qt::MetaModifier},       {0xffe8, Qt::Key_Meta, 0, Qt::MetaModifier},
    {0xffe9, Qt::Key_Alt, 0, Qt::AltModifier},         {0xffea, Qt::Key_Alt, 0, Qt::AltModifier},
    {0xff0b, Qt::Key_Clear, 0, Qt::NoModifier},        {0xffff, Qt::Key_Delete, 0x7f, Qt::NoModifier},
}};

// Keypad digits and operators lie at their ASCII codes above this symbol.
constexpr quint32 keypad = 0xff80;

Key typing(uint character)
{
    if (character > 0x10ffff || (character >= 0xd800 && character <= 0xdfff))
        return {};
    const uint upper = QChar::toUpper(character);
    return {static_cast<int>(upper), QString::fromUcs4(&character, 1), Qt::NoModifier};
}

} // namespace

Key Key::fromSymbol(quint32 symbol)
{
    if ((symbol >= 0x20 && symbol <= 0x7e) || (symbol >= 0xa0 && symbol <= 0xff))
        return typing(symbol);
    if (symbol >= 0x01000100 && symbol <= 0x0110ffff)
        return typing(symbol - 0x01000000);
    if (symbol >= keypad + '*' && symbol <= keypad + '9')
        return typing(symbol - keypad);
    const auto *special = std::find_if(specials.begin(), specials.end(),
                                       [symbol](const Special &each) { return each.symbol == symbol; });
    if (special == specials.end())
        return {};
    return {special->code, special->text ? QString(QLatin1Char(special->text)) : QString(),
            special->modifier};
}
