#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"

#include <QtGui/QGuiApplication>

namespace {

QQuickItem *exitButton(const ScreenFixture &fixture)
{
    return Operator::ancestorOf(Operator::byText(fixture.root(), QStringLiteral("Exit")), "QSP::BeepButton");
}

} // namespace

/// Inside the runtime called "vistor" the visit ends with Exit instead of Reboot.
class TestVistor : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setApplicationName(QStringLiteral("vistor")); }
    void exitHidesTheScreen_data();
    void exitHidesTheScreen();
};

void TestVistor::exitHidesTheScreen_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(1024, 600);
    QTest::newRow("narrow") << QSize(480, 800);
    QTest::newRow("compact") << QSize(480, 272);
}

void TestVistor::exitHidesTheScreen()
{
    QFETCH(QSize, size);
    HmiSimulator::reset();
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), size, compactOptions());
    for (int visit = 0; visit < 2; ++visit) {
        fixture.open();
        QVERIFY(!Operator::byText(fixture.root(), QStringLiteral("Reboot")));
        QQuickItem *button = exitButton(fixture);
        QVERIFY(button);
        QCOMPARE(button->property("background").value<QQuickItem *>()->property("color").value<QColor>(),
                 QColor(Qt::white));
        Operator::tap(button);
        QVERIFY(!fixture.root()->isVisible());
    }
    QCOMPARE(Journal::calls("reboot"), QStringList());
}

PANEL_TEST_MAIN(TestVistor)

#include "test_vistor.moc"
