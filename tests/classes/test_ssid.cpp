#include "cards/device/ssid.h"
#include "cards/device/wifiicon.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

using namespace QSP;

namespace {

HMI::SSID ssidOf(const QByteArray &bytes)
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
        QStringLiteral("\u05F0") + bad.repeated(3));
    row("empty", "", "", "");
    row("32 bytes", QByteArray(32, 'x'), QString(32, 'x'), QString(32, 'x'));
    row("33 bytes without an end", QByteArray(33, 'x'), QString(32, 'x'), QString(32, 'x'));
    row("behind the NUL", QByteArrayLiteral("ab\0cd"), "ab", "ab");
    row("right to left", QByteArray("שלום"), QStringLiteral("שלום"), QStringLiteral("שלום"));
}

void TestSsid::decoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, listed);
    QFETCH(QString, current);
    QCOMPARE(getSsidFromScan(ssidOf(bytes)), listed);
    QCOMPARE(getSsidFromCurWifi(ssidOf(bytes)), current);
}

void TestSsid::lastByteIsForced()
{
    const HMI::SSID ssid = terminatedSsid(ssidOf(QByteArray(33, 'x')));
    QCOMPARE(ssid[32], '\0');
    QCOMPARE(ssid[31], 'x');
}

void TestSsid::emptiness()
{
    QVERIFY(isEmptySsid(HMI::SSID{}));
    QVERIFY(!isEmptySsid(ssidOf("a")));
    QVERIFY(!isEmptySsid(ssidOf(QByteArray("\0\0\0x", 4))));
    QVERIFY(isEmptySsid(ssidOf(QByteArray("\0\0\0\0x", 5))));
}

void TestSsid::sameNetwork()
{
    QVERIFY(isSameNetwork(ssidOf("hall"), ssidOf(QByteArrayLiteral("hall\0x"))));
    QVERIFY(!isSameNetwork(ssidOf("hall"), ssidOf("halls")));
    QVERIFY(isSameNetwork(ssidOf(QByteArray(32, 'x')), ssidOf(QByteArray(33, 'x'))));
}

void TestSsid::displayedOnOneLine()
{
    const QString bad(QChar::ReplacementCharacter);
    QCOMPARE(displayName(QStringLiteral("a\nb\tc\x1b")), "a" + bad + "b" + bad + "c" + bad);
    QCOMPARE(displayName(QStringLiteral("a\u2028b\u2029c")), "a" + bad + "b" + bad + "c");
    QCOMPARE(displayName(QStringLiteral("装配线 <b>1</b>")), QStringLiteral("装配线 <b>1</b>"));
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
