#include "keylayout.h"

namespace StandIn {

namespace {

/// Fills a page row by row, from left to right.
class PageBuilder
{
public:
    PageBuilder(qreal columns, qreal rows, qreal maxAspect)
    {
        m_page.columns = columns;
        m_page.rows = rows;
        m_page.maxAspect = maxAspect;
    }

    /// Starts the row at @p y, @p x units in from the left.
    PageBuilder &row(qreal y, qreal x = 0)
    {
        m_x = x;
        m_y = y;
        return *this;
    }

    PageBuilder &keys(const char *characters)
    {
        for (; *characters; ++characters)
            key(*characters, 1);
        return *this;
    }

    PageBuilder &key(char character, qreal width)
    {
        add({KeyRole::Character, QLatin1Char(character), QRectF(m_x, m_y, width, 1)});
        return *this;
    }

    PageBuilder &key(KeyRole role, qreal width, qreal height = 1)
    {
        add({role, QChar(), QRectF(m_x, m_y, width, height)});
        return *this;
    }

    KeyPage page() const { return m_page; }

private:
    void add(const KeySpec &spec)
    {
        m_page.keys.push_back(spec);
        m_x += spec.cell.width();
    }

    KeyPage m_page;
    qreal m_x = 0;
    qreal m_y = 0;
};

// Wide enough for a finger, but not so wide that the eye has to travel.
constexpr qreal PadAspect = 2.3;
constexpr qreal FullAspect = 2.6;

PageBuilder padTop()
{
    PageBuilder pad(4, 4, PadAspect);
    pad.row(0).keys("123").key(KeyRole::Backspace, 1);
    pad.row(1).keys("456").key(KeyRole::Clear, 1);
    pad.row(2).keys("789").key(KeyRole::Enter, 1, 2);
    return pad;
}

KeyPage addressPage()
{
    return padTop().row(3).keys(".0").key(KeyRole::Hide, 1).page();
}

KeyPage digitPage()
{
    return padTop().row(3).key('0', 2).key(KeyRole::Hide, 1).page();
}

KeyPage letterPage()
{
    PageBuilder full(10, 5, FullAspect);
    full.row(0).keys("1234567890");
    full.row(1).keys("qwertyuiop");
    full.row(2, 0.5).keys("asdfghjkl");
    full.row(3).key(KeyRole::Shift, 1.5).keys("zxcvbnm").key(KeyRole::Backspace, 1.5);
    full.row(4).key(KeyRole::Symbols, 1.5).key(KeyRole::Hide, 1).keys(":").key(' ', 3.5).keys(".");
    full.key(KeyRole::Enter, 2);
    return full.page();
}

KeyPage symbolPage()
{
    PageBuilder full(10, 5, FullAspect);
    full.row(0).keys("1234567890");
    full.row(1).keys("!@#$%^&*()");
    full.row(2).keys("-_=+[]{}\\|");
    full.row(3).keys(";:'\"<>/?").key(KeyRole::Backspace, 2);
    full.row(4).key(KeyRole::Letters, 1.5).key(KeyRole::Hide, 1).keys("`~").key(' ', 1.5).keys(",.");
    full.key(KeyRole::Enter, 2);
    return full.page();
}

} // namespace

bool isKnownLayout(VkbLayoutType type)
{
    return type == VkbAddressDigits || type == VkbPlainDigits || type == VkbFullKeyboard;
}

const KeyPage &keyPage(VkbLayoutType type, bool symbols)
{
    static const KeyPage address = addressPage();
    static const KeyPage digits = digitPage();
    static const KeyPage letters = letterPage();
    static const KeyPage signs = symbolPage();
    switch (type) {
    case VkbAddressDigits:
        return address;
    case VkbPlainDigits:
        return digits;
    case VkbFullKeyboard:
        break;
    }
    return symbols ? signs : letters;
}

QString keyName(const KeySpec &spec)
{
    switch (spec.role) {
    case KeyRole::Character:
        return spec.character == QLatin1Char(' ') ? QStringLiteral("space") : QString(spec.character);
    case KeyRole::Backspace:
        return QStringLiteral("backspace");
    case KeyRole::Clear:
        return QStringLiteral("clear");
    case KeyRole::Enter:
        return QStringLiteral("enter");
    case KeyRole::Hide:
        return QStringLiteral("hide");
    case KeyRole::Shift:
        return QStringLiteral("shift");
    case KeyRole::Symbols:
        return QStringLiteral("symbols");
    case KeyRole::Letters:
        return QStringLiteral("letters");
    }
    return QString();
}

} // namespace StandIn
