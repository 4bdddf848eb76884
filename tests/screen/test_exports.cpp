#include "plugin/isystemset.h"
#include "plugin/pluginregistry.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>

#include <dlfcn.h>

/// The library as a host's loader sees it: by dlopen, with the exports and the interface alone.
class TestExports : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void queryDataKnowsOneCode_data();
    void queryDataKnowsOneCode();
    void registryHoldsTheInterfaceAlone();
    void registryMayBeViewedAsItsMap();
    void openAndCloseBeforeInitDoNothing();
    void initRefusesNonsense();

private:
    template <class Function> Function *resolve(const char *name)
    {
        return reinterpret_cast<Function *>(dlsym(m_library, name));
    }

    using Map = std::map<std::type_index, std::function<std::shared_ptr<void>()>>;

    void *m_library = nullptr;
    VexPlugin::PluginRegistry *m_registry = nullptr;
};

void TestExports::initTestCase()
{
    m_library = dlopen(PANEL_PLUGIN, RTLD_NOW | RTLD_LOCAL);
    QVERIFY2(m_library, dlerror());
    m_registry = resolve<VexPlugin::PluginRegistry *()>("VexPluginGetInstance")();
    QVERIFY(m_registry);
}

void TestExports::queryDataKnowsOneCode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("answer");
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("one") << 1 << -1;
    QTest::newRow("minus five") << -5 << -1;
    QTest::newRow("largest") << INT_MAX << -1;
}

void TestExports::queryDataKnowsOneCode()
{
    QFETCH(int, code);
    QTEST(resolve<int(int)>("VexPluginQueryData")(code), "answer");
}

void TestExports::registryHoldsTheInterfaceAlone()
{
    QCOMPARE(m_registry->factories().size(), size_t(1));
    const auto entry = m_registry->factories().begin();
    QVERIFY(entry->first == std::type_index(typeid(ISystemSet)));
    const std::shared_ptr<void> first = entry->second();
    const std::shared_ptr<void> second = entry->second();
    QVERIFY(first && second);
    QVERIFY(first != second);
}

void TestExports::registryMayBeViewedAsItsMap()
{
    static_assert(sizeof(VexPlugin::PluginRegistry) == sizeof(Map), "the map is the only member");
    const auto *map = reinterpret_cast<const Map *>(m_registry);
    QCOMPARE(map->size(), size_t(1));
    QVERIFY(map->count(typeid(ISystemSet)) == 1);
}

void TestExports::openAndCloseBeforeInitDoNothing()
{
    const auto screen =
        std::static_pointer_cast<ISystemSet>(m_registry->factories().at(typeid(ISystemSet))());
    screen->open();
    screen->close();
}

void TestExports::initRefusesNonsense()
{
    const auto screen =
        std::static_pointer_cast<ISystemSet>(m_registry->factories().at(typeid(ISystemSet))());
    QQmlEngine engine;
    expectMessage(QStringLiteral("engine and a size"), 4);
    QVERIFY(!screen->init(nullptr, 1024, 600, 0));
    QVERIFY(!screen->init(&engine, 0, 600, 0));
    QVERIFY(!screen->init(&engine, 1024, 0, 0));
    QVERIFY(!screen->init(&engine, -1, -1, 0));
    screen->open();
    screen->close();
}

PANEL_TEST_MAIN(TestExports)

#include "test_exports.moc"
