#include "tests/screen/screenfixture.h"
#include "tests/support/qrreader.h"

#include "simulator/simulator.h"

#include <QtCore/QFileInfo>
#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);

QQuickItem *codeImage(QQuickItem *card)
{
    return Operator::items(card,
                           [](QQuickItem *item) {
                               return item->inherits("QQuickImage") &&
                                      item->property("source").toUrl().isLocalFile();
                           })
        .value(0);
}

} // namespace

/// The Version page as an operator, and a phone, see it.
class TestVersion : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void codeOnTheGlass_data();
    void codeOnTheGlass();
    void newCodeIsShown();
    void placeholderWithoutACode();
    void unwritableDirectory();
    void longNumbersStayInTheCard_data();
    void longNumbersStayInTheCard();
    void markupIsText();
    void followsTheLanguage();

private:
    std::unique_ptr<QTemporaryDir> m_directory;
};

void TestVersion::init()
{
    beginWatch();
    HmiSimulator::reset();
    qunsetenv("TMPDIR");
    m_directory = std::make_unique<QTemporaryDir>();
    qputenv("TMPDIR", QFile::encodeName(m_directory->path()));
}

void TestVersion::codeOnTheGlass_data()
{
    QTest::addColumn<QSize>("size");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes)
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestVersion::codeOnTheGlass()
{
    QFETCH(QSize, size);
    HmiSimulator::setSerialNumber("HMI-面板-00421");
    ScreenFixture fixture(plugin, size, compactOptions());
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    QCOMPARE(fixture.title(), QStringLiteral("Version"));
    QQuickItem *card = fixture.card("QSP::CardVersion");
    QVERIFY(card);
    QCOMPARE(Operator::visibleTexts(card), QStringList({"Cloud Info", "Serial Number", "HMI-面板-00421"}));
    QQuickItem *image = codeImage(card);
    QVERIFY(image);
    const int side = static_cast<int>(card->property("versionTitleRowHeight").toInt() * 3.1);
    QCOMPARE(image->size(), QSizeF(side, side));
    const QRect place = image->mapRectToScene(QRectF(QPointF(), image->size())).toRect();
    const QImage glass = Operator::picture(fixture.window());
    QCOMPARE(readQrCode(glass.copy(place)), QStringLiteral("HMI-面板-00421"));
    QCOMPARE(readQrCode(glass), QStringLiteral("HMI-面板-00421"));
}

void TestVersion::newCodeIsShown()
{
    HmiSimulator::setSerialNumber("old");
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    QCOMPARE(readQrCode(Operator::picture(fixture.window())), QStringLiteral("old"));
    HmiSimulator::setSerialNumber("new");
    QMetaObject::invokeMethod(fixture.card("QSP::CardVersion"), "loadSerialNumber");
    Operator::settle();
    QCOMPARE(readQrCode(Operator::picture(fixture.window())), QStringLiteral("new"));
}

void TestVersion::placeholderWithoutACode()
{
    HmiSimulator::setSerialNumber(std::string(5000, 'W'));
    expectMessage(QStringLiteral("too long for any QR code"));
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    QQuickItem *card = fixture.card("QSP::CardVersion");
    QVERIFY(Operator::byText(card, QStringLiteral("QR Code")));
    QVERIFY(!codeImage(card));
}

void TestVersion::unwritableDirectory()
{
    // A file in place of a directory cannot be written into by anybody.
    QFile file(m_directory->filePath(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    qputenv("TMPDIR", QFile::encodeName(file.fileName() + QStringLiteral("/below")));
    expectMessage(QStringLiteral("^cannot write the QR code to "));
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    QQuickItem *card = fixture.card("QSP::CardVersion");
    QVERIFY(Operator::byText(card, QStringLiteral("QR Code")));
    QVERIFY(card->property("qrCodeUrl").toUrl().isEmpty());
}

void TestVersion::longNumbersStayInTheCard_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QByteArray>("serial");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes) {
        const auto row = [&size](const char *what) -> QTestData & {
            return QTest::addRow("%s at %dx%d", what, size.width(), size.height()) << size;
        };
        row("100 wide letters") << QByteArray(100, 'W');
        row("5,000 letters") << QByteArray(5000, 'W');
        row("5,000 lines") << QByteArray(5000, '\n');
        row("invalid bytes") << QByteArray(40, '\xFF');
    }
}

void TestVersion::longNumbersStayInTheCard()
{
    QFETCH(QSize, size);
    QFETCH(QByteArray, serial);
    HmiSimulator::setSerialNumber(serial.toStdString());
    if (serial.size() > 1000)
        expectMessage(QStringLiteral("too long for any QR code"));
    ScreenFixture fixture(plugin, size, compactOptions());
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    QQuickItem *card = fixture.card("QSP::CardVersion");
    const QRectF room = card->mapRectToScene(QRectF(QPointF(), card->size()));
    const auto texts = Operator::allByClass(card, "QQuickText");
    QVERIFY(texts.size() >= 3);
    for (QQuickItem *text : texts) {
        const QRectF place = text->mapRectToScene(QRectF(QPointF(), text->size()));
        QVERIFY2(room.contains(place), qPrintable(text->property("text").toString().left(40)));
        QVERIFY(text->property("contentWidth").toReal() <= text->width() + 0.5);
    }
}

void TestVersion::markupIsText()
{
    const QString serial = QStringLiteral("<b>7</b>&amp;");
    HmiSimulator::setSerialNumber(serial.toStdString());
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    const QQuickItem *text = Operator::byText(fixture.card("QSP::CardVersion"), serial);
    QVERIFY(text);
    QCOMPARE(text->property("textFormat").toInt(), int(Qt::PlainText));
}

void TestVersion::followsTheLanguage()
{
    HmiSimulator::setSerialNumber("42");
    ScreenFixture fixture(plugin, {1024, 600});
    fixture.open();
    fixture.tapMenu(QStringLiteral("Version"));
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    fixture.screen()->open();
    QCOMPARE(Operator::visibleTexts(fixture.card("QSP::CardVersion")),
             QStringList({QStringLiteral("云信息"), QStringLiteral("序列号"), QStringLiteral("42")}));
}

PANEL_TEST_MAIN(TestVersion)

#include "test_version.moc"
