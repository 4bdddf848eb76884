#include "tests/screen/networkpage.h"

#include <QtGui/QFontInfo>
#include <QtGui/QGuiApplication>

/// The rows in other sizes than those of the screen, and in other fonts.
class TestNetworkSizes : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void rowsFollow_data();
    void rowsFollow();
    void adapterButtonsFollow();
    void labelsLeaveTheFieldsAlone_data();
    void labelsLeaveTheFieldsAlone();
    void longLabelsOfTheOtherCardsAreElided();
};

namespace {

// What stands in the rows, where, how large and in which font.
QStringList picture(const NetworkPage &page)
{
    auto *layout = page.network()->property("layout").value<QQuickItem *>();
    QStringList lines;
    const auto items = Operator::items(layout, [](QQuickItem *item) { return item->isVisible(); });
    for (QQuickItem *item : items) {
        const QRectF place = item->mapRectToItem(layout, QRectF(0, 0, item->width(), item->height()));
        lines << QStringLiteral("%1 %2,%3 %4x%5 %6")
                     // The toolkit numbers the types of documents anew for each engine.
                     .arg(QString::fromLatin1(item->metaObject()->className()).section("_QML", 0, 0))
                     .arg(place.x())
                     .arg(place.y())
                     .arg(place.width())
                     .arg(place.height())
                     .arg(item->property("font").value<QFont>().pixelSize());
    }
    return lines;
}

void setSizes(const NetworkPage &page, int rowHeight, int fontPixelSize)
{
    page.network()->setProperty("rowHeight", rowHeight);
    page.network()->setProperty("fontPixelSize", fontPixelSize);
}

} // namespace

void TestNetworkSizes::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
    // A switch that is on has its knob elsewhere.
    HmiSimulator::setDhcpOn(HMI::SystemSet::LAN1, false);
}

void TestNetworkSizes::rowsFollow_data()
{
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<int>("rowHeight");
    QTest::addColumn<int>("fontPixelSize");
    for (const char *adapter : {"LAN1", "Wi-Fi", "4G", "VPN"}) {
        QTest::newRow(qPrintable(QString("%1, smaller").arg(adapter))) << adapter << 48 << 15;
        QTest::newRow(qPrintable(QString("%1, larger").arg(adapter))) << adapter << 70 << 23;
    }
}

void TestNetworkSizes::rowsFollow()
{
    QFETCH(QString, adapter);
    QFETCH(int, rowHeight);
    QFETCH(int, fontPixelSize);
    QStringList builtSo;
    {
        NetworkPage page({1280, 800});
        setSizes(page, rowHeight, fontPixelSize);
        page.select(adapter);
        Operator::settle(300);
        builtSo = picture(page);
    }
    NetworkPage page({1280, 800});
    page.select(adapter);
    setSizes(page, rowHeight, fontPixelSize);
    QTRY_COMPARE(picture(page), builtSo);
}

void TestNetworkSizes::adapterButtonsFollow()
{
    NetworkPage page({1280, 800});
    setSizes(page, 48, 15);
    for (const char *label : {"LAN0", "VPN"}) {
        QQuickItem *button = page.adapterButton(label);
        QCOMPARE(button->height(), 24.0);
        QCOMPARE(Operator::byText(button, label)->property("font").value<QFont>().pixelSize(), 15);
    }
}

void TestNetworkSizes::labelsLeaveTheFieldsAlone_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QSize>("size");
    // The one of the tests, and the one that Debian gives by default, which is wide.
    for (const char *family : {"WenQuanYi Micro Hei", "DejaVu Sans"}) {
        const QVector<QSize> sizes = glassSizes();
        for (const QSize &size : sizes) {
            QTest::newRow(qPrintable(QString("%1, %2x%3").arg(family).arg(size.width()).arg(size.height())))
                << family << size;
        }
    }
}

void TestNetworkSizes::labelsLeaveTheFieldsAlone()
{
    QFETCH(QString, family);
    QFETCH(QSize, size);
    const QFont before = QGuiApplication::font();
    const auto restore = qScopeGuard([before] { QGuiApplication::setFont(before); });
    QFont font = before;
    font.setFamily(family);
    QCOMPARE(QFontInfo(font).family(), family);
    QGuiApplication::setFont(font);
    NetworkPage page(size);
    for (const char *adapter : {"LAN0", "Wi-Fi", "4G", "VPN"}) {
        page.select(adapter);
        const QStringList labels = page.rowLabels();
        for (const QString &text : labels) {
            // Its texts are not beside each other.
            if (page.row(text)->inherits("QSP::BeepButton"))
                continue;
            const QQuickItem *label = Operator::byText(page.row(text), text);
            const QList<QQuickItem *> beside = page.row(text)->childItems();
            for (const QQuickItem *item : beside) {
                if (item == label || label->parentItem() != item->parentItem())
                    continue;
                const double end = label->x() + label->property("contentWidth").toDouble();
                QVERIFY2(end <= item->x() + 0.5, qPrintable(text));
            }
        }
    }
}

void TestNetworkSizes::longLabelsOfTheOtherCardsAreElided()
{
    NetworkPage page({480, 800});
    const auto check = [](const QQuickItem *card, const char *labelAlias, const char *fieldAlias) {
        auto *label = card->property(labelAlias).value<QQuickItem *>();
        const auto *field = card->property(fieldAlias).value<QQuickItem *>();
        label->setProperty("text", QString(40, QLatin1Char('W')));
        const double end = label->x() + label->property("contentWidth").toDouble();
        QVERIFY2(end <= field->x() + 0.5, labelAlias);
        QVERIFY2(end > field->x() / 2.0, labelAlias);
    };
    check(page.dns(), "dns1Text", "dns1Input");
    check(page.dns(), "dns2Text", "dns2Input");
    check(page.defaultAdapter(), "networkText", "combobox");
    check(page.defaultAdapter(), "pingTestText", "pingBusy");
}

PANEL_TEST_MAIN(TestNetworkSizes)

#include "test_network_sizes.moc"
