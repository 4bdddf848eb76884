#include "tests/screen/screenfixture.h"

#include "simulator/simulator.h"

#include <QtGui/QGuiApplication>

namespace {

const QString plugin = QStringLiteral(PANEL_PLUGIN);

QQuickItem *alias(const QObject *object, const char *name)
{
    return object->property(name).value<QQuickItem *>();
}

void dragUp(const ScreenFixture &fixture, int x)
{
    Operator::drag(fixture.window(), {x, 400}, {x, 200}, 10);
}

} // namespace

/// Pages that are higher than the glass.
class TestScrolling : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void scrollingIsToldFromTapping();
    void lastCardKeepsItsDistance_data();
    void lastCardKeepsItsDistance();
    void pageThatFitsDoesNotScroll_data();
    void pageThatFitsDoesNotScroll();
};

void TestScrolling::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestScrolling::scrollingIsToldFromTapping()
{
    ScreenFixture fixture(plugin, {800, 480});
    fixture.open();
    QQuickItem *pool = alias(fixture.root(), "cardPool");
    QCOMPARE(pool->property("pressDelay").toInt(), 200);
    QVERIFY(pool->clip());
    fixture.tapMenu(QStringLiteral("Network"));
    QVERIFY(pool->property("contentHeight").toReal() > pool->height());
    QCOMPARE(pool->property("contentHeight").toReal(), alias(fixture.root(), "cardsParent")->height());
    dragUp(fixture, 500);
    QVERIFY(pool->property("contentY").toReal() > 0.0);
    // Each page begins at its top.
    fixture.tapMenu(QStringLiteral("Version"));
    QCOMPARE(pool->property("contentY").toReal(), 0.0);
}

void TestScrolling::lastCardKeepsItsDistance_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(800, 480), QSize(1024, 600), QSize(799, 480)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestScrolling::lastCardKeepsItsDistance()
{
    QFETCH(QSize, size);
    ScreenFixture fixture(plugin, size);
    fixture.open();
    fixture.tapMenu(QStringLiteral("Network"));
    QQuickItem *pool = alias(fixture.root(), "cardPool");
    const QQuickItem *column = alias(fixture.root(), "cardsParent");
    QVERIFY(column->height() > pool->height());
    const auto roomBelow = [column, size] {
        return size.height() - column->mapToScene({0, column->height()}).y();
    };
    // Once more than it takes: it ends there.
    for (int more = 2, i = 0; more > 0 && i < 20; ++i) {
        dragUp(fixture, 500);
        QTRY_VERIFY(!pool->property("moving").toBool());
        more -= roomBelow() > 0.0 ? 1 : 0;
    }
    QVERIFY2(qAbs(roomBelow() - 12.0) <= 0.5, qPrintable(QString::number(roomBelow())));
}

void TestScrolling::pageThatFitsDoesNotScroll_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size :
         {QSize(1024, 600), QSize(800, 480), QSize(480, 800), QSize(600, 1024), QSize(700, 480)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

// The Wi-Fi page with nothing to list is nearly as high as the glass.
void TestScrolling::pageThatFitsDoesNotScroll()
{
    QFETCH(QSize, size);
    ScreenFixture fixture(plugin, size);
    fixture.open();
    fixture.tapMenu(QStringLiteral("Network"));
    QMetaObject::invokeMethod(fixture.card("QSP::CardNetwork"), "switchToWifiCard");
    Operator::settle(30);
    QVERIFY(fixture.card("QSP::CardWifi"));
    const QQuickItem *pool = alias(fixture.root(), "cardPool");
    QVERIFY2(
        !pool->property("interactive").toBool(),
        qPrintable(
            QStringLiteral("%1 in %2").arg(pool->property("contentHeight").toReal()).arg(pool->height())));
}

PANEL_TEST_MAIN(TestScrolling)

#include "test_scrolling.moc"
