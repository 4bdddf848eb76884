#include "tests/screen/networkpage.h"

#include "tests/support/layoutcheck.h"

/// Room for every text at every size, and for the field that is being edited beside the keyboard.
class TestNetworkLayout : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void texts_data() { sizes(); }
    void texts();
    void keyboardCoversNoField_data() { sizes(); }
    void keyboardCoversNoField();

private:
    static void sizes();
};

void TestNetworkLayout::sizes()
{
    QTest::addColumn<QSize>("size");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes)
        QTest::newRow(qPrintable(QString("%1x%2").arg(size.width()).arg(size.height()))) << size;
}

void TestNetworkLayout::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::joinNetwork("Plant");
    HmiSimulator::setManual(true);
    // As wide as they get.
    HmiSimulator::setStoredAddress(HMI::SystemSet::LAN0, 0xC8C8C8C8, 0xFFFFFFFF, 0xC8C8C8C8);
    HmiSimulator::setMobile(2, 77);
}

void TestNetworkLayout::texts()
{
    QFETCH(QSize, size);
    NetworkPage page(size);
    for (const auto language : {HMI::SystemSet::ENGLISH, HMI::SystemSet::CHINESE}) {
        page.switchLanguage(language);
        const QStringList labels = page.adapterLabels();
        for (const QString &label : labels) {
            page.select(label);
            QCOMPARE(LayoutCheck::faults(page.glass()).join("; "), QString());
            const QRectF card(0, 0, page.network()->width(), page.network()->height());
            const auto items = Operator::allByClass(page.network(), "QQuickItem");
            for (QQuickItem *item : items) {
                const QRectF place =
                    item->mapRectToItem(page.network(), QRectF(0, 0, item->width(), item->height()));
                QVERIFY2(card.adjusted(-0.5, -0.5, 0.5, 0.5).contains(place) || place.isEmpty(),
                         item->metaObject()->className());
            }
        }
        page.select(labels.first());
        page.tap(
            Operator::byText(page.defaultAdapter(), language == HMI::SystemSet::ENGLISH ? "Test" : "测试"));
        QVERIFY(HmiSimulator::fireNext("pingTest"));
        QTRY_VERIFY(Operator::byClass(page.glass(), "QQuickPopupItem"));
        Operator::settle();
        QCOMPARE(LayoutCheck::faults(page.glass()), QStringList());
        Operator::key(page.window(), Qt::Key_Escape);
        QTRY_VERIFY(!Operator::byClass(page.glass(), "QQuickPopupItem"));
    }
}

void TestNetworkLayout::keyboardCoversNoField()
{
    QFETCH(QSize, size);
    NetworkPage page(size);
    const QVector<QQuickItem *> inputs{page.addressOf("IP Address"), page.addressOf("Default Gateway"),
                                       page.dnsInput(1), page.dnsInput(2)};
    for (QQuickItem *input : inputs) {
        page.edit(input, 2, "7");
        QQuickItem *keyboard = Operator::byName(page.glass(), "vkbKeyboard");
        QVERIFY(keyboard);
        const double top = keyboard->mapToScene(QPointF()).y();
        const QRectF field = input->mapRectToScene(QRectF(0, 0, input->width(), input->height()));
        QVERIFY2(field.bottom() <= top + 0.5, qPrintable(QString("%1 > %2").arg(field.bottom()).arg(top)));
        const double poolTop = page.screen().root()->property("cardPool").value<QQuickItem *>()->y();
        QVERIFY2(field.top() >= poolTop - 0.5, qPrintable(QString("%1 < %2").arg(field.top()).arg(poolTop)));
        Operator::key(page.window(), Qt::Key_Return);
        QTRY_COMPARE(page.screen().root()->property("cardsParent").value<QQuickItem *>()->y(), 0.0);
    }
}

PANEL_TEST_MAIN(TestNetworkLayout)

#include "test_network_layout.moc"
