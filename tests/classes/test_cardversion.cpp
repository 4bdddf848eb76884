#include "cards/about/cardversion.h"
#include "cards/about/qrpicture.h"
#include "shell/base/globalinfo.h"
#include "simulator/simulator.h"
#include "tests/support/paneltest.h"
#include "tests/support/qrreader.h"

#include <QtCore/QFileInfo>
#include <QtGui/QGuiApplication>

using QSP::CardVersion;
using QSP::GlobalInfo;

/// The serial number and its QR code, without the document.
class TestCardVersion : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void titleRowHeight_data();
    void titleRowHeight();
    void sizesOfTheCode_data();
    void sizesOfTheCode();
    void readsBack_data();
    void readsBack();
    void directoryOfThePicture();
    void tooLongForAnyCode();
    void tooLongForThePicture();
    void serialNumberShown_data();
    void serialNumberShown();
    void unreadableBytes();
    void sameFileEachTime();
    void makesTheDirectory();
    void linkIsReplaced();
    void directoryInTheWay();
    void noOldCodeBesideANewNumber();
    void iconStatus();

private:
    QString path() const { return m_directory->filePath(QStringLiteral("barcodeImg.png")); }

    std::unique_ptr<QTemporaryDir> m_directory;
};

void TestCardVersion::init()
{
    beginWatch();
    HmiSimulator::reset();
    GlobalInfo::instance().setScreenWidth(1024);
    GlobalInfo::instance().setScreenHeight(600);
    qunsetenv("TMPDIR");
    m_directory = std::make_unique<QTemporaryDir>();
    qputenv("TMPDIR", QFile::encodeName(m_directory->path()));
}

void TestCardVersion::titleRowHeight_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<int>("height");
    QTest::newRow("480x800") << QSize(480, 800) << 43;
    QTest::newRow("600x1024") << QSize(600, 1024) << 54;
    QTest::newRow("800x480") << QSize(800, 480) << 42;
    QTest::newRow("1280x800") << QSize(1280, 800) << 68;
}

void TestCardVersion::titleRowHeight()
{
    QFETCH(QSize, screen);
    QFETCH(int, height);
    GlobalInfo::instance().setScreenWidth(screen.width());
    GlobalInfo::instance().setScreenHeight(screen.height());
    QCOMPARE(CardVersion().versionTitleRowHeight(), height);
}

void TestCardVersion::sizesOfTheCode_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("scale");
    QTest::addColumn<int>("offset");
    QTest::newRow("21 modules in 100") << " " << 100 << 4 << 8;
    QTest::newRow("21 modules in 167") << " " << 167 << 7 << 10;
    QTest::newRow("21 modules in 133") << " " << 133 << 5 << 14;
    QTest::newRow("25 modules in 167") << "SN-2024-00018" << 167 << 6 << 8;
}

void TestCardVersion::sizesOfTheCode()
{
    QFETCH(QString, text);
    QFETCH(int, size);
    QFETCH(int, scale);
    QFETCH(int, offset);
    const QImage picture = QSP::qrPicture(text, size);
    QCOMPARE(picture.size(), QSize(size, size));
    QCOMPARE(picture.format(), QImage::Format_RGB32);
    const auto isBlack = [&picture](int x, int y) { return picture.pixel(x, y) == qRgb(0, 0, 0); };
    // The finder in the upper left corner: a ring of seven modules, white within.
    QVERIFY(!isBlack(offset - 1, offset));
    QVERIFY(!isBlack(offset, offset - 1));
    QVERIFY(isBlack(offset, offset));
    QVERIFY(isBlack(offset + 7 * scale - 1, offset));
    QVERIFY(!isBlack(offset + 7 * scale, offset));
    QVERIFY(isBlack(offset + scale - 1, offset + scale));
    QVERIFY(!isBlack(offset + scale, offset + scale));
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            QVERIFY(isBlack(x, y) || picture.pixel(x, y) == qRgb(255, 255, 255));
    }
}

void TestCardVersion::readsBack_data()
{
    QTest::addColumn<QString>("text");
    for (const int length : {1, 2, 7, 10, 17, 32, 50, 64, 99, 100})
        QTest::addRow("%d characters", length)
            << QStringLiteral("SN-0123456789-abcdefgh/").repeated(5).left(length);
    QTest::newRow("Chinese") << QStringLiteral("序列号二〇二四〇一八");
    QTest::newRow("64 digits") << QString(64, QLatin1Char('7'));
}

void TestCardVersion::readsBack()
{
    QFETCH(QString, text);
    QCOMPARE(readQrCode(QSP::qrPicture(text, 167)), text);
}

void TestCardVersion::directoryOfThePicture()
{
    QCOMPARE(QSP::temporaryDirectory(QStringLiteral("/run/tmp"), {}).path(), QStringLiteral("/run/tmp"));
    QCOMPARE(QSP::temporaryDirectory({}, QStringLiteral("/run/new")).path(), QStringLiteral("/run/new"));
    // Named by nobody, and the system has none: where this program runs is no place for it.
    QCOMPARE(QSP::temporaryDirectory({}, {}).path(), QStringLiteral("/tmp"));
}

void TestCardVersion::tooLongForAnyCode()
{
    expectMessage(QStringLiteral("^the serial number is too long for any QR code$"));
    HmiSimulator::setSerialNumber(std::string(5000, 'x'));
    CardVersion card;
    QSignalSpy changed(&card, &CardVersion::qrCodeUrlChanged);
    card.loadSerialNumber();
    QCOMPARE(card.serialNumber(), QString(5000, QLatin1Char('x')));
    QVERIFY(card.qrCodeUrl().isEmpty());
    QVERIFY(changed.isEmpty());
    QVERIFY(!QFileInfo::exists(path()));
}

void TestCardVersion::tooLongForThePicture()
{
    expectMessage(QStringLiteral("^the serial number is too long for a QR code of 100 pixels$"));
    QVERIFY(QSP::qrPicture(QString(1000, QLatin1Char('x')), 100).isNull());
}

void TestCardVersion::serialNumberShown_data()
{
    QTest::addColumn<QByteArray>("serial");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("encoded");
    QTest::newRow("usual") << QByteArray("HMI-7-00421") << "HMI-7-00421"
                           << "HMI-7-00421";
    QTest::newRow("Chinese") << QByteArray("面板-1") << QStringLiteral("面板-1") << QStringLiteral("面板-1");
    QTest::newRow("none") << QByteArray() << ""
                          << " ";
    QTest::newRow("the placeholder's text") << QByteArray("QR Code") << ""
                                            << "QR Code";
    QTest::newRow("in other letters") << QByteArray("qr code") << "qr code"
                                      << "qr code";
}

void TestCardVersion::serialNumberShown()
{
    QFETCH(QByteArray, serial);
    QFETCH(QString, shown);
    QFETCH(QString, encoded);
    HmiSimulator::setSerialNumber(serial.toStdString());
    CardVersion card;
    QSignalSpy serialChanged(&card, &CardVersion::serialNumberChanged);
    QSignalSpy urlChanged(&card, &CardVersion::qrCodeUrlChanged);
    card.loadSerialNumber();
    QCOMPARE(card.serialNumber(), shown);
    QCOMPARE(serialChanged.size(), shown.isEmpty() ? 0 : 1);
    QCOMPARE(urlChanged.size(), 1);
    QCOMPARE(card.qrCodeUrl(), QUrl::fromLocalFile(path()));
    const QImage picture(path(), "PNG");
    QCOMPARE(picture.size(), QSize(167, 167));
    QCOMPARE(readQrCode(picture), encoded);
}

void TestCardVersion::unreadableBytes()
{
    HmiSimulator::setSerialNumber("A\xFF\xFEZ");
    CardVersion card;
    card.loadSerialNumber();
    QCOMPARE(card.serialNumber(), QStringLiteral("A\uFFFD\uFFFDZ"));
    QCOMPARE(readQrCode(QImage(path())), card.serialNumber());
}

void TestCardVersion::sameFileEachTime()
{
    CardVersion card;
    QSignalSpy urlChanged(&card, &CardVersion::qrCodeUrlChanged);
    for (const char *serial : {"first", "second"}) {
        HmiSimulator::setSerialNumber(serial);
        card.loadSerialNumber();
        QCOMPARE(readQrCode(QImage(path())), QLatin1String(serial));
    }
    QCOMPARE(urlChanged.size(), 2);
    QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList(QStringLiteral("barcodeImg.png")));
}

void TestCardVersion::makesTheDirectory()
{
    const QString deep = m_directory->filePath(QStringLiteral("not/there/yet"));
    qputenv("TMPDIR", QFile::encodeName(deep));
    CardVersion card;
    card.loadSerialNumber();
    QCOMPARE(card.qrCodeUrl(), QUrl::fromLocalFile(deep + QStringLiteral("/barcodeImg.png")));
    QVERIFY(QFileInfo::exists(card.qrCodeUrl().toLocalFile()));
}

void TestCardVersion::linkIsReplaced()
{
    const QString victim = m_directory->filePath(QStringLiteral("victim"));
    QFile file(victim);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    QVERIFY(QFile::link(victim, path()));

    CardVersion card;
    card.loadSerialNumber();
    QVERIFY(!card.qrCodeUrl().isEmpty());
    QVERIFY(!QFileInfo(path()).isSymLink());
    QVERIFY(!QImage(path()).isNull());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArrayLiteral("precious"));
}

void TestCardVersion::directoryInTheWay()
{
    QVERIFY(QDir().mkpath(path()));
    expectMessage(QStringLiteral("^cannot put the QR code at "));
    CardVersion card;
    card.loadSerialNumber();
    QVERIFY(card.qrCodeUrl().isEmpty());
    QVERIFY(QFileInfo(path()).isDir());
    QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

void TestCardVersion::noOldCodeBesideANewNumber()
{
    CardVersion card;
    card.loadSerialNumber();
    QVERIFY(!card.qrCodeUrl().isEmpty());
    HmiSimulator::setSerialNumber(std::string(3000, 'y'));
    expectMessage(QStringLiteral("too long"));
    card.loadSerialNumber();
    QVERIFY(card.qrCodeUrl().isEmpty());
}

void TestCardVersion::iconStatus()
{
    CardVersion card;
    QSignalSpy changed(&card, &CardVersion::iconErrorChanged);
    QVERIFY(!card.iconError());
    for (const int status : {0, 1, 2, 4, -1})
        card.checkIconStatus(status);
    QVERIFY(changed.isEmpty());
    card.checkIconStatus(3);
    card.checkIconStatus(3);
    QVERIFY(card.iconError());
    QCOMPARE(changed.size(), 1);
    card.checkIconStatus(1);
    QVERIFY(!card.iconError());
    QCOMPARE(changed.size(), 2);
}

PANEL_TEST_MAIN(TestCardVersion)

#include "test_cardversion.moc"
