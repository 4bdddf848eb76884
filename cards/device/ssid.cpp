#include "cards/device/ssid.h"

#include <QtCore/QTextCodec>

#include <algorithm>
#include <cstring>

namespace QSP {

namespace {

int lengthOf(const HMI::SSID &ssid)
{
    return static_cast<int>(std::find(ssid.begin(), ssid.end() - 1, '\0') - ssid.begin());
}

QString decode(const char *codecName, const HMI::SSID &ssid, int *invalid)
{
    const QTextCodec *codec = QTextCodec::codecForName(codecName);
    // A platform whose library was built without the codec.
    if (!codec)
        return QString::fromUtf8(ssid.data(), lengthOf(ssid));
    QTextCodec::ConverterState state;
    QString name = codec->toUnicode(ssid.data(), lengthOf(ssid), &state);
    *invalid = state.invalidChars;
    return name;
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
    int invalid = 0;
    const QString name = decode("UTF-8", ssid, &invalid);
    return invalid == 0 ? name : decode("GB2312", ssid, &invalid);
}

QString getSsidFromCurWifi(const HMI::SSID &ssid)
{
    int invalid = 0;
    return decode("UTF-8", ssid, &invalid);
}

QString displayName(const QString &name)
{
    QString shown = name;
    for (QChar &character : shown) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            character = QChar::ReplacementCharacter;
    }
    return shown;
}

} // namespace QSP
