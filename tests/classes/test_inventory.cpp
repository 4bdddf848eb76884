#include "tests/support/inventory.h"
#include "tests/support/paneltest.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

#include <memory>
#include <vector>

/// That the counting finds what was left behind, or no test that counts could fail.
class TestInventory : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase() { Inventory::watch(); }
    void findsNothingWhereNothingIs();
    void findsObjectsWithoutOwner();
    void leavesOutWhatIsApart();
    void findsConnections();
    void findsTimers();
    void findsMemory();
};

void TestInventory::findsNothingWhereNothingIs()
{
    const Inventory before = Inventory::take();
    auto *gone = new QObject;
    gone->deleteLater();
    const Inventory after = Inventory::take();
    QCOMPARE(after.growthSince(before), QStringList());
    QCOMPARE(after.objectCount(), before.objectCount());
}

void TestInventory::findsObjectsWithoutOwner()
{
    const Inventory before = Inventory::take();
    const QObject left;
    const QStringList grown = Inventory::take().growthSince(before);
    QCOMPARE(grown.size(), 1);
    QVERIFY(grown.constFirst().startsWith(QLatin1String("QObject from ")));
}

void TestInventory::leavesOutWhatIsApart()
{
    QObject apart;
    const Inventory before = Inventory::take(&apart);
    auto *child = new QObject(&apart);
    child->setObjectName(QStringLiteral("child"));
    QCOMPARE(Inventory::take(&apart).growthSince(before), QStringList());
}

void TestInventory::findsConnections()
{
    QObject object;
    const Inventory before = Inventory::take();
    const auto connection = connect(&object, &QObject::objectNameChanged, &object, [] {});
    QCOMPARE(Inventory::take().connections, before.connections + 1);
    QCOMPARE(Inventory::take().growthSince(before).size(), 1);
    disconnect(connection);
    QCOMPARE(Inventory::take().connections, before.connections);
}

void TestInventory::findsTimers()
{
    QTimer timer;
    const Inventory before = Inventory::take();
    timer.start(1000);
    const Inventory after = Inventory::take();
    QCOMPARE(after.timerCount(), before.timerCount() + 1);
    QCOMPARE(after.growthSince(before), QStringList(QStringLiteral("running timers of QTimer from 0 to 1")));
}

void TestInventory::findsMemory()
{
    constexpr std::size_t size = std::size_t(300) * 1024;
    const Inventory before = Inventory::take();
    const std::vector<char> held(size);
    const std::size_t grown = Inventory::take().heapGrowthSince(before);
    QVERIFY2(grown >= size && grown < 2 * size, qPrintable(QString::number(grown)));
}

PANEL_TEST_MAIN(TestInventory)

#include "test_inventory.moc"
