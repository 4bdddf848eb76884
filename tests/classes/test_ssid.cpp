#include "cards/wifi/wifiicon.h"
#include "panel/ssid.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

using namespace QSP;

namespace {

HMI::SSID bytesOf(const QByteArray &bytes)
{
    HMI::SSID ssid{};
    std::copy_n(bytes.begin(), qMin(bytes.size(), int(ssid.size())), ssid.begin());
    return ssid;
}

} // namespace

/// Names of networks are bytes in whatever encoding.
class TestSsid : public PanelTest
{
    Q_OBJECT

private slots:
    void decoding_data();
    void decoding();
    void lastByteIsForced();
    void emptiness();
    void sameNetwork();
    void displayedOnOneLine();
    void whatDrawsNothingIsShown_data();
    void whatDrawsNothingIsShown();
    void icons_data();
    void icons();
};

void TestSsid::decoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("listed");
    QTest::addColumn<QString>("current");
    const auto row = [](const char *what, const QByteArray &bytes, const QString &listed,
                        const QString &current) { QTest::newRow(what) << bytes << listed << current; };
    const QString bad(QChar::ReplacementCharacter);
    row("plain", "Works Hall", "Works Hall", "Works Hall");
    row("UTF-8", QByteArrayLiteral("B\xC3\xBCro"), QStringLiteral("Büro"), QStringLiteral("Büro"));
    row("Chinese in UTF-8", QByteArray("装配线"), QStringLiteral("装配线"), QStringLiteral("装配线"));
    row("beyond the first plane", QByteArray("\xF0\x9F\x93\xB6 up"), QStringLiteral("\U0001F4F6 up"),
        QStringLiteral("\U0001F4F6 up"));
    row("GB2312", QByteArrayLiteral("\xD7\xB0\xC5\xE4\xCF\xDF"), QStringLiteral("装配线"),
        QStringLiteral("\u05F0") + bad.repeated(4));
    row("empty", "", "", "");
    row("32 bytes", QByteArray(32, 'x'), QString(32, 'x'), QString(32, 'x'));
    row("33 bytes without an end", QByteArray(33, 'x'), QString(32, 'x'), QString(32, 'x'));
    row("behind the NUL", QByteArrayLiteral("ab\0cd"), "ab", "ab");
    row("begun character at the end", "Caf\xE9", "Caf" + bad, "Caf" + bad);
    row("two bytes of GB2312", "\xE4\xBD", QStringLiteral("浣"), bad);
    row("GB2312 that ends in a begun character", "\xD7\xB0\xC5", QStringLiteral("装") + bad,
        QStringLiteral("\u05F0") + bad);
    row("UTF-8 cut at 32 bytes", QByteArray(30, 'x') + "\xE8\xA3", QString(30, 'x'), QString(30, 'x'));
    row("GB2312 cut at 32 bytes", "x" + QByteArrayLiteral("\xC5\xE4").repeated(15) + "\xC5",
        "x" + QStringLiteral("配").repeated(15), "x" + bad.repeated(30));
    row("31 bytes with a begun character", QByteArray(29, 'x') + "\xE8\xA3",
        QString(29, 'x') + QStringLiteral("瑁"), QString(29, 'x') + bad);
    row("begins with a byte order mark", "\xEF\xBB\xBFHall", QStringLiteral("\uFEFFHall"),
        QStringLiteral("\uFEFFHall"));
    row("right to left", QByteArray("שלום"), QStringLiteral("שלום"), QStringLiteral("שלום"));
}

void TestSsid::decoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, listed);
    QFETCH(QString, current);
    QCOMPARE(getSsidFromScan(bytesOf(bytes)), listed);
    QCOMPARE(getSsidFromCurWifi(bytesOf(bytes)), current);
}

void TestSsid::lastByteIsForced()
{
    const HMI::SSID ssid = terminatedSsid(bytesOf(QByteArray(33, 'x')));
    QCOMPARE(ssid[32], '\0');
    QCOMPARE(ssid[31], 'x');
}

void TestSsid::emptiness()
{
    QVERIFY(isEmptySsid(HMI::SSID{}));
    QVERIFY(!isEmptySsid(bytesOf("a")));
    QVERIFY(!isEmptySsid(bytesOf(QByteArray("\0\0\0x", 4))));
    QVERIFY(isEmptySsid(bytesOf(QByteArray("\0\0\0\0x", 5))));
}

void TestSsid::sameNetwork()
{
    QVERIFY(isSameNetwork(bytesOf("hall"), bytesOf(QByteArrayLiteral("hall\0x"))));
    QVERIFY(!isSameNetwork(bytesOf("hall"), bytesOf("halls")));
    QVERIFY(isSameNetwork(bytesOf(QByteArray(32, 'x')), bytesOf(QByteArray(33, 'x'))));
}

void TestSsid::displayedOnOneLine()
{
    const QString bad(QChar::ReplacementCharacter);
    QCOMPARE(displayName(QStringLiteral("a\nb\tc\x1b")), "a" + bad + "b" + bad + "c" + bad);
    QCOMPARE(displayName(QStringLiteral("a\u2028b\u2029c")), "a" + bad + "b" + bad + "c");
    QCOMPARE(displayName(QStringLiteral("装配线 <b>1</b>")), QStringLiteral("装配线 <b>1</b>"));
    QCOMPARE(displayName(QStringLiteral("שלום \U0001F4F6 e\u0301")),
             QStringLiteral("שלום \U0001F4F6 e\u0301"));
}

void TestSsid::whatDrawsNothingIsShown_data()
{
    QTest::addColumn<uint>("character");
    const QVector<QPair<const char *, uint>> rows{{"right-to-left override", 0x202E},
                                                  {"left-to-right mark", 0x200E},
                                                  {"isolate", 0x2067},
                                                  {"pop isolate", 0x2069},
                                                  {"zero-width space", 0x200B},
                                                  {"zero-width joiner", 0x200D},
                                                  {"word joiner", 0x2060},
                                                  {"byte order mark", 0xFEFF},
                                                  {"soft hyphen", 0x00AD},
                                                  {"grapheme joiner", 0x034F},
                                                  {"Hangul filler", 0x3164},
                                                  {"variation selector", 0xFE0E},
                                                  {"tag", 0xE0041},
                                                  {"further variation selector", 0xE0100}};
    for (const auto &row : rows)
        QTest::newRow(row.first) << row.second;
}

void TestSsid::whatDrawsNothingIsShown()
{
    QFETCH(uint, character);
    QString inside(QStringLiteral("Hall"));
    if (QChar::requiresSurrogates(character))
        inside += QChar(QChar::highSurrogate(character));
    inside += QChar(QChar::requiresSurrogates(character) ? QChar::lowSurrogate(character) : character);
    QCOMPARE(displayName(inside + "2"), QStringLiteral("Hall\uFFFD2"));
}

void TestSsid::icons_data()
{
    QTest::addColumn<int>("strength");
    QTest::addColumn<int>("bars");
    const QVector<QPair<int, int>> rows{{255, 4}, {100, 4}, {80, 4}, {79, 3}, {60, 3},
                                        {59, 2},  {40, 2},  {39, 1}, {1, 1},  {0, 1}};
    for (const auto &row : rows)
        QTest::addRow("%d", row.first) << row.first << row.second;
}

void TestSsid::icons()
{
    QFETCH(int, strength);
    QFETCH(int, bars);
    QCOMPARE(wifiSignalIcon(strength), QUrl(QStringLiteral("qrc:/setting/icons/%1@2x.png").arg(bars)));
}

PANEL_TEST_MAIN(TestSsid)

#include "test_ssid.moc"
