#include "panel/ssid.h"

#include <QtCore/QTextCodec>
#include <QtCore/QVector>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace QSP {

namespace {

int lengthOf(const HMI::SSID &ssid)
{
    return static_cast<int>(std::find(ssid.begin(), ssid.end() - 1, '\0') - ssid.begin());
}

// All the room is taken, so that the access point's owner may have cut off the last character.
bool isFull(const HMI::SSID &ssid)
{
    return lengthOf(ssid) == static_cast<int>(ssid.size()) - 1;
}

QString fromUtf8(const HMI::SSID &ssid, bool *valid)
{
    const QTextCodec *codec = QTextCodec::codecForName("UTF-8");
    // A byte order mark is a part of the name like any other character.
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QString name = codec->toUnicode(ssid.data(), lengthOf(ssid), &state);
    // The codec waits for the rest of it.
    const bool isBegun = state.remainingChars > 0 && !isFull(ssid);
    if (isBegun)
        name += QChar::ReplacementCharacter;
    *valid = state.invalidChars == 0 && !isBegun;
    return name;
}

QString fromGb2312(const QTextCodec *codec, const HMI::SSID &ssid)
{
    QByteArray bytes(ssid.data(), lengthOf(ssid));
    QTextCodec::ConverterState state;
    if (isFull(ssid))
        return codec->toUnicode(bytes.constData(), bytes.size(), &state);
    // Not every codec tells that it waits for a second byte. It gives up when a blank comes.
    bytes += ' ';
    QString name = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    if (name.endsWith(QLatin1Char(' ')))
        name.chop(1);
    return name;
}

// Whether a character draws nothing, or only moves others: names that differ in such alone look alike.
bool isUnseen(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format: // directions, joiners, zero-width blanks
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        break;
    }
    struct Range {
        uint first;
        uint last;
    };
    static constexpr Range blanks[] = {
        {0x034F, 0x034F},   // grapheme joiner
        {0x115F, 0x1160},   // fillers of Hangul
        {0x17B4, 0x17B5},   // inherent vowels of Khmer
        {0x180B, 0x180F},   // variation selectors of Mongolian
        {0x3164, 0x3164},   // filler of Hangul
        {0xFE00, 0xFE0F},   // variation selectors
        {0xFFA0, 0xFFA0},   // filler of Hangul, half wide
        {0xE0100, 0xE01EF}, // further variation selectors
    };
    return std::any_of(std::begin(blanks), std::end(blanks), [character](const Range &range) {
        return range.first <= character && character <= range.last;
    });
}

} // namespace

HMI::SSID terminatedSsid(HMI::SSID ssid)
{
    ssid.back() = '\0';
    return ssid;
}

bool isEmptySsid(const HMI::SSID &ssid)
{
    return std::all_of(ssid.begin(), ssid.begin() + 4, [](char byte) { return byte == '\0'; });
}

bool isSameNetwork(const HMI::SSID &one, const HMI::SSID &other)
{
    return std::strncmp(one.data(), other.data(), one.size() - 1) == 0;
}

QString getSsidFromScan(const HMI::SSID &ssid)
{
    bool valid = false;
    QString name = fromUtf8(ssid, &valid);
    if (valid)
        return name;
    // Null on a platform whose library was built without it.
    const QTextCodec *codec = QTextCodec::codecForName("GB2312");
    return codec ? fromGb2312(codec, ssid) : name;
}

QString getSsidFromCurWifi(const HMI::SSID &ssid)
{
    bool valid = false;
    return fromUtf8(ssid, &valid);
}

QString displayName(const QString &name)
{
    QString shown;
    shown.reserve(name.size());
    const QVector<uint> characters = name.toUcs4();
    for (const uint character : characters) {
        if (isUnseen(character)) {
            shown += QChar::ReplacementCharacter;
        } else if (QChar::requiresSurrogates(character)) {
            shown += QChar(QChar::highSurrogate(character));
            shown += QChar(QChar::lowSurrogate(character));
        } else {
            shown += QChar(character);
        }
    }
    return shown;
}

} // namespace QSP
