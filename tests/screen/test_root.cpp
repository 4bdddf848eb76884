#include "tests/screen/screenfixture.h"

#include <QtGui/QGuiApplication>

/// Geometry and page switching of a wide screen.
class TestRoot : public PanelTest
{
    Q_OBJECT

private slots:
    void hiddenUntilOpened();
};

void TestRoot::hiddenUntilOpened()
{
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), {1024, 600});
    QVERIFY(fixture.isBuilt());
    QVERIFY(!fixture.root()->isVisible());
    fixture.open();
    QVERIFY(fixture.root()->isVisible());
    QCOMPARE(fixture.title(), QStringLiteral("General"));
    fixture.tapMenu(QStringLiteral("Network"));
    QCOMPARE(fixture.title(), QStringLiteral("Network"));
}

PANEL_TEST_MAIN(TestRoot)

#include "test_root.moc"
