#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QRegularExpression>
#include <QResource>
#include <QTranslator>
#include <QtTest>
#include <QXmlStreamReader>

namespace {

const char catalogue[] = ":/setting/translations/settings.qm";

QString iconPath(const QString &name = {})
{
    return QStringLiteral(":/setting/icons/") + name;
}

// The icons of the card titles, which are read at 40 x 40.
QStringList titleIcons()
{
    return {"newbright.png",  "newtime.png", "newbuzzer.png", "newnetwork1.png",
            "newdefault.png", "newdns.png",  "newcloud.png"};
}

QStringList iconsOf(const char *names)
{
    QStringList icons = QString::fromLatin1(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (QString &icon : icons)
        icon += QStringLiteral(".png");
    return icons;
}

// What documents and classes ask for.
QStringList usedIcons()
{
    return iconsOf("newsetting newnetwork newlanguage newversion newrestart newexit rightArrow0@2x "
                   "leftArrow0@2x newbright newtime newbuzzer newnetwork1 newdefault newdns newcloud "
                   "newdecrease newincrease newrefresh newtickgreen tickGray close down_arrow 1@2x 2@2x "
                   "3@2x 4@2x loading@2x singal4G_0 singal4G_1 singal4G_2 singal4G_3 singal4G_4 singal4G_5");
}

// Kept in the bundle though nothing asks for them.
QStringList spareIcons()
{
    return iconsOf("0@2x returnWlan refreshing tickGreen restart_off restart_on exit exit@2x gear_on "
                   "gear_off language_on language_off version_on version_off radar_on radar_off buzzer nic "
                   "dns plus minus time-clock network-set ICON-liangdu2x ICON@2x(4)");
}

QStringList iconNames()
{
    return usedIcons() + spareIcons();
}

// All that could ask for an icon, in one text.
QByteArray sources()
{
    const QDir tree(QStringLiteral(SOURCE_DIRECTORY));
    QByteArray text;
    for (const char *place : {"cards", "controls", "panel", "plugin", "shell", "resources/setting"}) {
        QDirIterator files(tree.filePath(QLatin1String(place)), {"*.cpp", "*.h", "*.qml"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                text += file.readAll();
        }
    }
    return text;
}

struct Entry {
    QByteArray context;
    QByteArray source;
    QString translation;
    bool finished;
};

// The entries of the catalogue as its source file tells them.
QVector<Entry> readEntries()
{
    QVector<Entry> entries;
    QFile file(QStringLiteral(CATALOGUE_SOURCE));
    if (!file.open(QIODevice::ReadOnly))
        return entries;
    QXmlStreamReader xml(&file);
    QByteArray context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText().toUtf8();
        } else if (xml.name() == QLatin1String("source")) {
            entries.append({context, xml.readElementText().toUtf8(), {}, true});
        } else if (xml.name() == QLatin1String("translation") && !entries.isEmpty()) {
            entries.last().finished = !xml.attributes().hasAttribute(QStringLiteral("type"));
            entries.last().translation = xml.readElementText();
        }
    }
    return xml.hasError() ? QVector<Entry>{} : entries;
}

QImage readIcon(const QString &name)
{
    return QImage(iconPath(name)).convertToFormat(QImage::Format_ARGB32);
}

int visiblePixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 127 ? 1 : 0;
    }
    return count;
}

} // namespace

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void bundleHoldsTheIconsAndNoOthers();
    void icon_data();
    void icon();
    void signalLevelsDiffer_data();
    void signalLevelsDiffer();
    void indicatorTurnsAroundItsCentre();
    void bundleIsStoredUncompressed();
    void documentsAreCompressed();
    void documentsAreThereAsTexts();
    void spareIconsAreAskedForByNobody();
    void spareIconsAreListed();
    void catalogueHasItsEntries();
    void catalogueTranslates();
    void catalogueKeepsItsGaps();
};

void TestResources::bundleHoldsTheIconsAndNoOthers()
{
    QStringList there = QDir(iconPath()).entryList(QDir::Files);
    QStringList wanted = iconNames();
    there.sort();
    wanted.sort();
    QCOMPARE(there, wanted);
}

void TestResources::icon_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names = iconNames();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void TestResources::icon()
{
    QFETCH(QString, name);
    QImageReader reader(iconPath(name));
    QCOMPARE(reader.format(), QByteArray("png"));
    const QImage image = readIcon(name);
    QVERIFY2(!image.isNull(), qPrintable(reader.errorString()));
    QCOMPARE(image.size(), titleIcons().contains(name) ? QSize(40, 40) : QSize(64, 64));

    const int last = image.width() - 1;
    for (const QPoint corner : {QPoint(0, 0), QPoint(last, 0), QPoint(0, last), QPoint(last, last)})
        QCOMPARE(qAlpha(image.pixel(corner)), 0);
    // The thinnest drawing, a single bar, still covers this much.
    const int visible = visiblePixels(image);
    QVERIFY2(visible >= 0.029 * image.width() * image.height(), qPrintable(QString::number(visible)));
    QVERIFY2(visible < image.width() * image.height() * 3 / 4, qPrintable(QString::number(visible)));
}

void TestResources::signalLevelsDiffer_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<int>("levels");
    QTest::newRow("Wi-Fi") << "%1@2x.png" << 5;
    QTest::newRow("4G") << "singal4G_%1.png" << 6;
}

// Levels share one outline, and each shows more of the accent colour than the one below.
void TestResources::signalLevelsDiffer()
{
    QFETCH(QString, pattern);
    QFETCH(int, levels);
    int accentBelow = -1;
    const int outline = visiblePixels(readIcon(pattern.arg(0)));
    for (int level = 0; level < levels; ++level) {
        const QImage image = readIcon(pattern.arg(level));
        int accent = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                accent += image.pixel(x, y) == qRgb(0x34, 0x82, 0xff) ? 1 : 0;
        }
        QVERIFY2(accent > accentBelow, qPrintable(QString::number(level)));
        accentBelow = accent;
        QCOMPARE(visiblePixels(image), outline);
    }
}

// A busy indicator that is off its centre would wobble while it turns.
void TestResources::indicatorTurnsAroundItsCentre()
{
    const QImage image = readIcon(QStringLiteral("loading@2x.png"));
    QVERIFY(!image.isNull());
    const int last = image.width() - 1;
    // The arc lies on the track, so the smoothed edge is covered twice there.
    const int smoothing = 72;
    bool turningShows = false;
    for (int y = 0; y <= last; ++y) {
        for (int x = 0; x <= last; ++x) {
            const QRgb here = image.pixel(x, y);
            const QRgb opposite = image.pixel(last - x, last - y);
            QVERIFY2(qAbs(qAlpha(here) - qAlpha(opposite)) <= smoothing,
                     qPrintable(QStringLiteral("%1,%2").arg(x).arg(y)));
            turningShows = turningShows || (qAlpha(here) > 200 && qAbs(qRed(here) - qRed(opposite)) > 100);
        }
    }
    QVERIFY(turningShows);
}

void TestResources::bundleIsStoredUncompressed()
{
    const QStringList names = iconNames();
    for (const QString &name : names)
        QCOMPARE(QResource(iconPath(name)).compressionAlgorithm(), QResource::NoCompression);
    const QResource compiled{QLatin1String(catalogue)};
    QVERIFY(compiled.isValid());
    QCOMPARE(compiled.compressionAlgorithm(), QResource::NoCompression);
}

void TestResources::documentsAreCompressed()
{
    int count = 0;
    QDirIterator documents(QStringLiteral(":/setting"), {"*.qml"}, QDir::Files, QDirIterator::Subdirectories);
    while (documents.hasNext()) {
        const QString path = documents.next();
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        // Ahead of the compressed bytes qCompress() puts four with the length.
        const bool shrinks = qCompress(text).size() - 4 < text.size();
        QVERIFY2(!shrinks || QResource(path).compressionAlgorithm() != QResource::NoCompression,
                 qPrintable(path));
        ++count;
    }
    QVERIFY(count > 0);
}

// What is compiled of them is for this version of the toolkit alone; any other reads these.
void TestResources::documentsAreThereAsTexts()
{
    const QDir tree(QStringLiteral(SOURCE_DIRECTORY "/resources"));
    int count = 0;
    QDirIterator documents(tree.filePath(QStringLiteral("setting")), {"*.qml"}, QDir::Files,
                           QDirIterator::Subdirectories);
    while (documents.hasNext()) {
        QFile source(documents.next());
        QFile embedded(QStringLiteral(":/") + tree.relativeFilePath(source.fileName()));
        QVERIFY2(source.open(QIODevice::ReadOnly) && embedded.open(QIODevice::ReadOnly),
                 qPrintable(embedded.fileName()));
        QCOMPARE(embedded.readAll(), source.readAll());
        ++count;
    }
    QVERIFY(count > 0);
}

void TestResources::spareIconsAreAskedForByNobody()
{
    const QByteArray text = sources();
    QVERIFY(text.contains("icons/newtickgreen.png"));
    const QStringList icons = spareIcons();
    for (const QString &icon : icons)
        QVERIFY2(!text.contains("icons/" + icon.toLatin1()), qPrintable(icon));
}

// Whoever wonders what an icon is for finds all of them in one place of the documents.
void TestResources::spareIconsAreListed()
{
    QFile page(QStringLiteral(SOURCE_DIRECTORY "/docs/names.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    const int begin = text.indexOf(QLatin1String("- Icons in the bundle that nothing"));
    QVERIFY(begin >= 0);
    const QString entry = text.mid(begin, text.indexOf(QLatin1String("\n- "), begin) - begin);
    static const QRegularExpression name(QStringLiteral("`([^`]+\\.png)`"));
    QStringList listed;
    for (auto icons = name.globalMatch(entry); icons.hasNext();)
        listed += icons.next().captured(1);
    QStringList spare = spareIcons();
    spare.sort();
    listed.sort();
    QCOMPARE(listed, spare);
}

void TestResources::catalogueHasItsEntries()
{
    const QVector<Entry> entries = readEntries();
    QCOMPARE(entries.size(), 73);
    QMap<QByteArray, int> count;
    QSet<QByteArray> keys;
    for (const Entry &entry : entries) {
        QVERIFY2(entry.finished, entry.source.constData());
        ++count[entry.context];
        keys.insert(entry.context + '/' + entry.source);
    }
    QCOMPARE(keys.size(), entries.size());
    const QMap<QByteArray, int> wanted = {
        {"CardBrightness", 1},   {"CardBuzzer", 1},   {"CardDNS", 3},      {"CardNIC", 9},
        {"CardNetwork", 30},     {"CardTime", 2},     {"CardVersion", 3},  {"CardWifi", 12},
        {"QSP::AppRootItem", 8}, {"QSP::CardNIC", 1}, {"RebootDialog", 2}, {"TimeEditPopup", 1},
    };
    QCOMPARE(count, wanted);
}

// The compiled catalogue says of every entry what its source file says.
void TestResources::catalogueTranslates()
{
    QTranslator translator;
    QVERIFY(translator.load(QLatin1String(catalogue)));
    const QVector<Entry> entries = readEntries();
    QVERIFY(!entries.isEmpty());
    for (const Entry &entry : entries) {
        const QString text = translator.translate(entry.context.constData(), entry.source.constData());
        QCOMPARE(text, entry.translation);
    }
    const auto translate = [&](const char *context, const char *source) {
        return translator.translate(context, source);
    };
    QCOMPARE(translate("CardBrightness", "Brightness"), QStringLiteral("亮度"));
    QCOMPARE(translate("CardNetwork", "Disconnected"), QStringLiteral("未连接"));
    QCOMPARE(translate("CardWifi", "Reset WLAN"), QStringLiteral("重置WLAN"));
    QCOMPARE(translate("QSP::CardNIC", "Test Result"), QStringLiteral("测试结果"));
    QCOMPARE(translate("TimeEditPopup", "OK"), QStringLiteral("确定"));
}

// The texts that stay English: two with an empty translation, one without an entry.
void TestResources::catalogueKeepsItsGaps()
{
    QStringList empty;
    const QVector<Entry> entries = readEntries();
    for (const Entry &entry : entries) {
        if (entry.translation.isEmpty())
            empty.append(entry.context + '/' + entry.source);
    }
    QCOMPARE(empty, QStringList({"CardDNS/DNS 1", "CardDNS/DNS 2"}));

    // A translator answers alike for an empty entry and for none, so the file itself is asked.
    QFile compiled{QLatin1String(catalogue)};
    QVERIFY(compiled.open(QIODevice::ReadOnly));
    const QByteArray bytes = compiled.readAll();
    QVERIFY(bytes.contains("DNS 1"));
    QVERIFY(bytes.contains("DNS 2"));
    QVERIFY(!bytes.contains("Not connected"));

    QTranslator translator;
    QVERIFY(translator.load(QLatin1String(catalogue)));

    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(QCoreApplication::translate("CardDNS", "DNS 1"), QStringLiteral("DNS 1"));
    QCOMPARE(QCoreApplication::translate("CardDNS", "DNS 2"), QStringLiteral("DNS 2"));
    QCOMPARE(QCoreApplication::translate("CardNetwork", "Not connected"), QStringLiteral("Not connected"));
    QCOMPARE(QCoreApplication::translate("CardDNS", "DNS Server"), QStringLiteral("DNS服务器信息"));
    QCoreApplication::removeTranslator(&translator);
}

QTEST_GUILESS_MAIN(TestResources)
#include "tst_resources.moc"
