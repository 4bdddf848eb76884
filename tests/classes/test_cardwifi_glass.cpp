#include "tests/classes/wifiscene.h"

#include <QtGui/QGuiApplication>

#include <cmath>

using QSP::CardWifi;

namespace {

QRectF onGlass(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(QPointF(), item->size()));
}

QImage pictureOf(const WifiScene &scene, const QQuickItem *item)
{
    return Operator::picture(scene.window()).copy(onGlass(item).toAlignedRect());
}

qreal luminance(QRgb color)
{
    const auto linear = [](int channel) {
        const qreal value = channel / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

qreal contrastOf(QRgb one, QRgb other)
{
    const qreal a = luminance(one) + 0.05;
    const qreal b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

/// Contrast between what most of the picture is filled with and what differs most from it.
qreal contrastOf(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QRgb ground = 0;
    for (auto i = counts.cbegin(); i != counts.cend(); ++i)
        ground = i.value() > counts.value(ground) ? i.key() : ground;
    qreal most = 1.0;
    for (auto i = counts.cbegin(); i != counts.cend(); ++i)
        most = qMax(most, contrastOf(i.key(), ground));
    return most;
}

QQuickItem *bigScanButton()
{
    return WifiScene::part("bigScanButton");
}

} // namespace

/// The Wi-Fi page and its dialog as they are on the glass.
class TestCardWifiGlass : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void dialogKeepsItsLineWhenTheListRepaints_data();
    void dialogKeepsItsLineWhenTheListRepaints();
    void emptyListOffersAScan_data();
    void emptyListOffersAScan();
    void listOfTheJoinedNetworkAlone();
    void offlineIsSaid();
    void linesBetweenRows_data();
    void linesBetweenRows();
    void resetIsPaintedAsADanger();
    void contrast_data();
    void contrast();

private:
    static void addScreens();
};

void TestCardWifiGlass::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiGlass::addScreens()
{
    QTest::addColumn<QSize>("screen");
    for (const QSize &screen :
         {QSize(1024, 600), QSize(800, 480), QSize(1280, 800), QSize(480, 800), QSize(600, 1024)})
        QTest::addRow("%dx%d", screen.width(), screen.height()) << screen;
}

void TestCardWifiGlass::dialogKeepsItsLineWhenTheListRepaints_data()
{
    addScreens();
}

void TestCardWifiGlass::dialogKeepsItsLineWhenTheListRepaints()
{
    QFETCH(QSize, screen);
    const WifiScene scene(screen);
    scene.scan();
    WifiScene::scriptReports({4});
    Operator::tap(scene.row(QStringLiteral("Works Hall Guests")));
    Operator::settle();
    QQuickItem *content = scene.dialogBody()->parentItem();
    const auto isLine = [](QQuickItem *item) {
        return item->inherits("QQuickRectangle") && item->height() == 1.0;
    };
    QQuickItem *line = Operator::items(content, isLine).value(0);
    QVERIFY(line);
    const auto picture = [&] {
        const QRectF place = line->mapRectToScene(QRectF(0.0, 0.0, line->width(), line->height()));
        return Operator::picture(scene.window()).copy(place.toAlignedRect().adjusted(4, -1, -4, 1));
    };
    const QImage before = picture();
    QCOMPARE(line->mapToScene({}).y(), std::round(line->mapToScene({}).y()));
    QCOMPARE(scene.dialogBody()->mapToScene({}).y(), std::round(scene.dialogBody()->mapToScene({}).y()));
    // The joined network is lost and comes back to the list.
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(WifiScene::listed().size(), 9);
    Operator::settle();
    QCOMPARE(picture(), before);
}

void TestCardWifiGlass::emptyListOffersAScan_data()
{
    addScreens();
}

void TestCardWifiGlass::emptyListOffersAScan()
{
    QFETCH(QSize, screen);
    const WifiScene scene(screen);
    QVERIFY(bigScanButton() && bigScanButton()->isVisible());
    const QQuickItem *image = WifiScene::part("bigScanButtonImage");
    QCOMPARE(image->property("source"), WifiScene::part("scanButtonImage")->property("source"));
    QVERIFY(image->width() > 2 * WifiScene::part("scanButtonImage")->width());
    // In the middle of the room below the caption.
    const QRectF caption = onGlass(WifiScene::part("nearWlanTxt")->parentItem());
    const QRectF room(caption.bottomLeft(), QPointF(caption.right(), screen.height()));
    QVERIFY(room.contains(onGlass(bigScanButton())));
    QVERIFY(qAbs(onGlass(image).center().x() - room.center().x()) <= 1.0);
    QVERIFY(qAbs(onGlass(image).center().y() - room.center().y()) <= 20.0);

    Operator::tap(bigScanButton());
    QCOMPARE(Journal::callsButBeeps(), QStringList(QStringLiteral("scanWifi()")));
    QVERIFY(!bigScanButton()->isEnabled());
    QCOMPARE(image->opacity(), 0.4);
    QVERIFY(WifiScene::report("scanWifi"));
    QVERIFY(!bigScanButton()->isVisible());
    // A scan that failed shows no more than one that was never made.
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.nullList = true; });
    scene.scan();
    QVERIFY(bigScanButton()->isVisible());
    QVERIFY(bigScanButton()->isEnabled());
    QCOMPARE(image->opacity(), 1.0);
    Operator::press(bigScanButton());
    QTRY_COMPARE(image->opacity(), 0.6);
    Operator::release(bigScanButton());
}

void TestCardWifiGlass::listOfTheJoinedNetworkAlone()
{
    HmiSimulator::setNetworks({{"Works Hall", "", 50}});
    const WifiScene scene;
    scene.scan();
    // Its row is hidden, so that the list shows nothing.
    QCOMPARE(WifiScene::listed(), QStringList());
    QVERIFY(bigScanButton() && bigScanButton()->isVisible());
    HmiSimulator::leaveNetwork();
    WifiScene::wifi()->updateCurrentWifi();
    QCOMPARE(WifiScene::listed(), QStringList(QStringLiteral("Works Hall")));
    QVERIFY(!bigScanButton()->isVisible());
}

void TestCardWifiGlass::offlineIsSaid()
{
    const WifiScene scene;
    QVERIFY(!Operator::byText(WifiScene::wifi(), QStringLiteral("Wi-Fi Offline")));
    HmiSimulator::leaveNetwork();
    WifiScene::network()->updateWifiStatus();
    const QQuickItem *text = Operator::byText(WifiScene::wifi(), QStringLiteral("Wi-Fi Offline"));
    QVERIFY(text);
    QVERIFY(onGlass(WifiScene::part("current")).contains(onGlass(text)));
    // The row itself stays empty.
    QVERIFY(WifiScene::current().isNull());
    HmiSimulator::joinNetwork("Warehouse");
    WifiScene::network()->updateWifiStatus();
    QVERIFY(!Operator::byText(WifiScene::wifi(), QStringLiteral("Wi-Fi Offline")));
    // Joined to something that has no name yet.
    HmiSimulator::joinNetwork("");
    WifiScene::network()->updateWifiStatus();
    QVERIFY(!Operator::byText(WifiScene::wifi(), QStringLiteral("Wi-Fi Offline")));
}

void TestCardWifiGlass::linesBetweenRows_data()
{
    addScreens();
}

void TestCardWifiGlass::linesBetweenRows()
{
    QFETCH(QSize, screen);
    const WifiScene scene(screen);
    scene.scan();
    const QImage glass = Operator::picture(scene.window());
    const auto isLine = [&glass](const QQuickItem *row) {
        const QRect place = onGlass(row).toRect();
        const QRgb color = glass.pixel(place.center().x(), place.top());
        return color != glass.pixel(place.center().x(), place.top() + 3) &&
               color == glass.pixel(place.right() - 1, place.top());
    };
    const QStringList names = WifiScene::neighbours();
    for (int i = 0; i < 3; ++i)
        QCOMPARE(isLine(scene.row(names[i])), i > 0);
    const auto lines = Operator::items(WifiScene::part("list"), [](QQuickItem *item) {
        return item->inherits("QQuickRectangle") && item->height() == 1.0;
    });
    QVERIFY(!lines.isEmpty());
    for (const QQuickItem *line : lines) {
        // The shade of a dialog would leave a part of a pixel out.
        QCOMPARE(onGlass(line).left(), std::round(onGlass(line).left()));
        QCOMPARE(onGlass(line).right(), std::round(onGlass(line).right()));
        QCOMPARE(onGlass(line).top(), std::round(onGlass(line).top()));
    }
    // They stay when a row is painted again.
    Operator::press(scene.row(names[1]));
    QTRY_VERIFY(Operator::picture(scene.window()) != glass);
    QTest::mouseMove(scene.window(), {5, 5});
    QTest::mouseRelease(scene.window(), Qt::LeftButton, {}, {5, 5});
    QTRY_VERIFY(Operator::picture(scene.window()) == glass);
    // The first row that is shown has none, whichever it is.
    HmiSimulator::joinNetwork(names[0].toStdString());
    WifiScene::wifi()->updateCurrentWifi();
    const QImage after = Operator::picture(scene.window());
    const QRect first = onGlass(scene.row(QStringLiteral("Works Hall"))).toRect();
    QCOMPARE(after.pixel(first.center().x(), first.top()), after.pixel(first.center().x(), first.top() + 3));
}

void TestCardWifiGlass::resetIsPaintedAsADanger()
{
    const WifiScene scene;
    const QImage button = pictureOf(scene, scene.resetButton());
    const QColor color = button.pixelColor(button.width() / 2, 3);
    QVERIFY2(color.red() > 2 * color.green() && color.red() > 2 * color.blue(), qPrintable(color.name()));
}

void TestCardWifiGlass::contrast_data()
{
    addScreens();
}

void TestCardWifiGlass::contrast()
{
    QFETCH(QSize, screen);
    const WifiScene scene(screen);
    constexpr qreal ofText = 4.5;
    constexpr qreal ofOutlines = 3.0;
    const auto isReadable = [&scene](QQuickItem *root, const char *name) {
        const QQuickItem *text = Operator::byText(root, QString::fromUtf8(name));
        const qreal contrast = text ? contrastOf(pictureOf(scene, text)) : 0.0;
        if (contrast < ofText)
            qWarning("%s: %.2f", name, contrast);
        return contrast >= ofText;
    };
    QVERIFY(isReadable(WifiScene::wifi(), "Connected Wi-Fi"));
    QVERIFY(isReadable(WifiScene::wifi(), "Nearby Wi-Fi"));
    QVERIFY(isReadable(WifiScene::wifi(), "Reset"));
    HmiSimulator::leaveNetwork();
    WifiScene::network()->updateWifiStatus();
    QVERIFY(isReadable(WifiScene::wifi(), "Wi-Fi Offline"));
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    Operator::settle();
    QVERIFY(isReadable(scene.dialogBody(), "Enter password"));
    QVERIFY(isReadable(scene.dialogBody(), "Show Password"));
    QVERIFY(isReadable(scene.dialogBody(), "Connect"));
    const auto outlined = Operator::items(scene.dialogBody(), [](QQuickItem *item) {
        return item->inherits("QQuickRectangle") && item->property("radius").toReal() < 5.0;
    });
    QCOMPARE(outlined.size(), 2);
    for (const QQuickItem *item : outlined)
        QVERIFY(contrastOf(pictureOf(scene, item)) >= ofOutlines);
    scene.closeDialog();

    WifiScene::root()->setCurrentPage(QSP::AppRootItem::MenuIndex::Network);
    Operator::settle();
    QVERIFY(isReadable(WifiScene::network(), "Wi-Fi Settings"));
    WifiScene::root()->setCurrentPage(QSP::AppRootItem::MenuIndex::Version);
    Operator::settle();
    QVERIFY(isReadable(scene.root(), "Serial Number"));
}

PANEL_TEST_MAIN(TestCardWifiGlass)

#include "test_cardwifi_glass.moc"
