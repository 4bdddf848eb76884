#include "tests/screen/networkpage.h"

/// What the operator sees of a ping test while it waits, and of its outcome.
class TestPing : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void waitingIsSeen();
    void onlyOneAtATime();
    void silenceIsAFailure();
    void resultOfAFormerDefaultIsDropped_data();
    void resultOfAFormerDefaultIsDropped();
    void resultIsDroppedOffTheGlass();
    void outcomesLookDifferent();
    void dialogFollowsTheScreen();
};

namespace {

QQuickItem *testButton(const NetworkPage &page)
{
    return Operator::ancestorOf(Operator::byText(page.defaultAdapter(), "Test"), "QSP::BeepButton");
}

bool isBusy(const NetworkPage &page)
{
    const auto isSign = [](QQuickItem *item) {
        return item->isVisible() && item->property("source").toString().endsWith("loading@2x.png");
    };
    return !Operator::items(page.defaultAdapter(), isSign).isEmpty();
}

QQuickItem *dialogItem(const NetworkPage &page)
{
    return Operator::byClass(page.glass(), "QQuickPopupItem");
}

// How much of the dialog on the glass has about that colour.
int pixelsOf(NetworkPage &page, const QColor &color)
{
    const QImage picture = Operator::picture(page.window());
    QQuickItem *dialog = dialogItem(page);
    const QRect area =
        QRectF(dialog->mapToScene(QPointF()), QSizeF(dialog->width(), dialog->height())).toAlignedRect();
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            count += qAbs(pixel.red() - color.red()) < 24 && qAbs(pixel.green() - color.green()) < 24 &&
                     qAbs(pixel.blue() - color.blue()) < 24;
        }
    }
    return count;
}

} // namespace

void TestPing::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
}

void TestPing::waitingIsSeen()
{
    NetworkPage page;
    QQuickItem *button = testButton(page);
    QVERIFY(button->isEnabled() && !isBusy(page));
    page.tap(button);
    QVERIFY(!button->isEnabled());
    QVERIFY(isBusy(page));
    // It turns.
    auto *sign = qobject_cast<QQuickItem *>(page.defaultAdapter()->property("pingBusy").value<QObject *>());
    const qreal angle = sign->rotation();
    QTRY_VERIFY(!qFuzzyCompare(sign->rotation(), angle));
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    QTRY_VERIFY(button->isEnabled());
    QVERIFY(!isBusy(page));
}

void TestPing::onlyOneAtATime()
{
    NetworkPage page;
    QSignalSpy results(page.defaultAdapter(), SIGNAL(pingTestResult(bool)));
    page.tap(testButton(page));
    const QPoint place = Operator::centerOf(testButton(page));
    for (int i = 0; i < 4; ++i)
        Operator::tap(page.window(), place);
    QCOMPARE(Journal::calls("pingTest"), QStringList("pingTest(LAN0)"));
    QCOMPARE(HmiSimulator::fireAll(), 1);
    QTRY_VERIFY(page.isShown("Test Result"));
    QCOMPARE(results.count(), 1);
}

void TestPing::silenceIsAFailure()
{
    NetworkPage page;
    QSignalSpy results(page.defaultAdapter(), SIGNAL(pingTestResult(bool)));
    auto *limit = page.screen().root()->findChild<QTimer *>("pingLimit");
    QVERIFY(limit);
    QCOMPARE(limit->interval(), 15000);
    QVERIFY(!limit->isActive());
    page.tap(testButton(page));
    QVERIFY(limit->isActive());
    limit->start(0);
    QTRY_VERIFY(page.isShown("Test failed!"));
    QVERIFY(testButton(page)->isEnabled() && !isBusy(page));
    // The answer that comes after all is none any more.
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    Operator::settle();
    QVERIFY(page.isShown("Test failed!"));
    QCOMPARE(results.count(), 1);
}

void TestPing::resultOfAFormerDefaultIsDropped_data()
{
    QTest::addColumn<bool>("byTheOperator");
    QTest::newRow("chosen here") << true;
    QTest::newRow("changed elsewhere") << false;
}

void TestPing::resultOfAFormerDefaultIsDropped()
{
    QFETCH(bool, byTheOperator);
    NetworkPage page;
    QSignalSpy results(page.defaultAdapter(), SIGNAL(pingTestResult(bool)));
    page.tap(testButton(page));
    if (byTheOperator) {
        Operator::tap(Operator::byText(page.openList(page.defaultAdapter()), "LAN1"));
        // The new one can be tested at once.
        QTRY_VERIFY(testButton(page)->isEnabled());
    } else {
        HmiSimulator::setDefaultNic(HMI::SystemSet::LAN1);
    }
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    QTRY_VERIFY(testButton(page)->isEnabled());
    Operator::settle();
    QVERIFY(!isBusy(page));
    QVERIFY(!page.isShown("Test Result"));
    QCOMPARE(results.count(), 0);
    QVERIFY(!page.screen().root()->findChild<QTimer *>("pingLimit")->isActive());
}

void TestPing::resultIsDroppedOffTheGlass()
{
    NetworkPage page;
    page.tap(testButton(page));
    QQuickItem *root = page.screen().root();
    root->setParentItem(nullptr);
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    Operator::settle();
    root->setParentItem(page.window()->contentItem());
    QTRY_VERIFY(testButton(page)->isEnabled());
    QVERIFY(!page.isShown("Test Result"));
}

void TestPing::outcomesLookDifferent()
{
    const QColor good(0x00, 0xBC, 0x79);
    const QColor bad(0xFF, 0x4D, 0x4F);
    NetworkPage page;
    page.tap(testButton(page));
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    QTRY_VERIFY(page.isShown("Test successful!"));
    QTRY_VERIFY(pixelsOf(page, good) > 100);
    QCOMPARE(pixelsOf(page, bad), 0);
    Operator::key(page.window(), Qt::Key_Escape);
    QTRY_VERIFY(!page.isShown("Test Result"));
    HmiSimulator::change([](HmiSimulator::Panel &panel) { panel.faults.ping = false; });
    page.tap(testButton(page));
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    QTRY_VERIFY(page.isShown("Test failed!"));
    QTRY_VERIFY(pixelsOf(page, bad) > 100);
    QCOMPARE(pixelsOf(page, good), 0);
}

void TestPing::dialogFollowsTheScreen()
{
    NetworkPage page;
    page.tap(testButton(page));
    QVERIFY(HmiSimulator::fireNext("pingTest"));
    QTRY_VERIFY(page.isShown("Test Result"));
    for (const QSize &size : {QSize(1280, 800), QSize(900, 560)}) {
        page.window()->resize(size);
        page.screen().root()->setSize(size);
        Operator::settle();
        const QRectF place(dialogItem(page)->mapToItem(page.screen().root(), QPointF()),
                           QSizeF(dialogItem(page)->width(), dialogItem(page)->height()));
        QVERIFY((place.center() - QRectF(QPointF(), size).center()).manhattanLength() <= 1.0);
    }
}

PANEL_TEST_MAIN(TestPing)

#include "test_ping.moc"
