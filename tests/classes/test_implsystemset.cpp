#include "plugin/implsystemset.h"
#include "shell/approotitem.h"
#include "shell/base/globalinfo.h"
#include "simulator/simulator.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtQml/QQmlAbstractUrlInterceptor>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <memory>
#include <utility>

using QSP::AppRootItem;
using QSP::GlobalInfo;

namespace {

// Makes one document impossible to find, as if it were broken.
class Missing : public QQmlAbstractUrlInterceptor
{
public:
    explicit Missing(QString document) : m_document(std::move(document)) {}
    QUrl intercept(const QUrl &url, DataType) override
    {
        return url.path() == m_document ? QUrl(QStringLiteral("qrc:/missing.qml")) : url;
    }

private:
    QString m_document;
};

QString titleOf(const QQuickItem *root)
{
    return root->property("titleText").value<QQuickItem *>()->property("text").toString();
}

} // namespace

/// The plug-in's object as a host drives it, in good order and in bad.
class TestImplSystemSet : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void glassIsMeasuredOnceThereIsAWindow();
    void initTellsTheScreenItsSize_data();
    void initTellsTheScreenItsSize();
    void secondScreenReplacesTheFirst();
    void withoutItsDocumentThereIsNoScreen();
    void withoutItsDocumentACardStaysAway();
    void withoutItsDocumentACardOfTheFirstPageStaysAway();
    void withoutTheirDocumentThereAreNoEntries();
    void engineMayDieFirst();
    void titleHeightIsWhole();
    void dyingScreenTellsItsHostNothing();

private:
    QQuickItem *build(int width = 1024, int height = 600);

    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    ImplSystemSet m_screen;
};

void TestImplSystemSet::init()
{
    beginWatch();
    HmiSimulator::reset();
    m_engine = std::make_unique<QQmlEngine>();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(1024, 600);
    m_window->show();
}

void TestImplSystemSet::cleanup()
{
    delete AppRootItem::instance();
    m_window.reset();
    m_engine.reset();
    endWatch();
}

QQuickItem *TestImplSystemSet::build(int width, int height)
{
    QQuickItem *root = m_screen.init(m_engine.get(), width, height, 1000);
    if (root)
        root->setParentItem(m_window->contentItem());
    return root;
}

// The first of all: the glass is measured once a process.
void TestImplSystemSet::glassIsMeasuredOnceThereIsAWindow()
{
    const QSizeF glass = m_window->screen()->physicalSize();
    QVERIFY(glass.width() >= glass.height());
    QQuickItem *root = m_screen.init(m_engine.get(), 600, 1024, 1000);
    QVERIFY(root);
    QVERIFY(GlobalInfo::instance().isNativePortrait());
    root->setParentItem(m_window->contentItem());
    QVERIFY(!GlobalInfo::instance().isNativePortrait());
    QVERIFY(GlobalInfo::instance().isScreenPortrait());
}

void TestImplSystemSet::initTellsTheScreenItsSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("popupZ");
    QTest::addColumn<bool>("menuFill");
    QTest::newRow("portrait") << QSize(600, 1024) << 77 << true;
    QTest::newRow("landscape") << QSize(1280, 800) << -5 << false;
    QTest::newRow("smallest") << QSize(1, 1) << 0 << true;
}

void TestImplSystemSet::initTellsTheScreenItsSize()
{
    QFETCH(QSize, size);
    QFETCH(int, popupZ);
    const QQuickItem *root = m_screen.init(m_engine.get(), size.width(), size.height(), popupZ);
    QVERIFY(root);
    QCOMPARE(root, AppRootItem::instance());
    QCOMPARE(root->size(), QSizeF(size));
    const GlobalInfo &info = GlobalInfo::instance();
    QCOMPARE(info.screenSize(), size);
    QTEST(info.isMenuFill(), "menuFill");
    QCOMPARE(info.rootPopupZ(), popupZ);
    QCOMPARE(info.qmlEngine(), m_engine.get());
}

void TestImplSystemSet::secondScreenReplacesTheFirst()
{
    const std::unique_ptr<QQuickItem> first(build());
    QQuickItem *second = build(480, 800);
    QVERIFY(second && second != first.get());
    QCOMPARE(AppRootItem::instance(), second);
    m_screen.open();
    QVERIFY(second->isVisible());
    QVERIFY(!first->isVisible());
}

void TestImplSystemSet::withoutItsDocumentThereIsNoScreen()
{
    Missing missing(QStringLiteral("/setting/main.qml"));
    m_engine->setUrlInterceptor(&missing);
    expectMessage(QStringLiteral("missing.qml"));
    QVERIFY(!build());
    // Not tried again, and not said again.
    QVERIFY(!build());
    QVERIFY(!AppRootItem::instance());
    m_screen.open();
    m_screen.close();
}

void TestImplSystemSet::withoutItsDocumentACardStaysAway()
{
    Missing missing(QStringLiteral("/setting/card/Version.qml"));
    m_engine->setUrlInterceptor(&missing);
    QQuickItem *root = build();
    m_screen.open();
    expectMessage(QStringLiteral("missing.qml"));
    AppRootItem *screen = AppRootItem::instance();
    for (int visit = 0; visit < 3; ++visit) {
        screen->setCurrentPage(AppRootItem::MenuIndex::Version);
        QCOMPARE(titleOf(root), QStringLiteral("Version"));
        QVERIFY(!screen->getCardItem(AppRootItem::Cards::Version));
        screen->setCurrentPage(AppRootItem::MenuIndex::General);
    }
    m_screen.close();
}

void TestImplSystemSet::withoutItsDocumentACardOfTheFirstPageStaysAway()
{
    Missing missing(QStringLiteral("/setting/card/Brightness.qml"));
    m_engine->setUrlInterceptor(&missing);
    expectMessage(QStringLiteral("missing.qml"));
    for (int screens = 0; screens < 2; ++screens) {
        const std::unique_ptr<QQuickItem> root(build());
        m_screen.open();
        m_screen.close();
        m_screen.open();
        const AppRootItem *screen = AppRootItem::instance();
        QVERIFY(!screen->getCardItem(AppRootItem::Cards::Brightness));
        QVERIFY(screen->getCardItem(AppRootItem::Cards::Time));
        QVERIFY(screen->getCardItem(AppRootItem::Cards::Buzzer));
    }
}

void TestImplSystemSet::withoutTheirDocumentThereAreNoEntries()
{
    Missing missing(QStringLiteral("/setting/flatui/MenuButton.qml"));
    m_engine->setUrlInterceptor(&missing);
    expectMessage(QStringLiteral("missing.qml"));
    QVERIFY(build());
    m_screen.open();
    AppRootItem::instance()->setCurrentPage(AppRootItem::MenuIndex::Network);
    m_screen.close();
}

void TestImplSystemSet::engineMayDieFirst()
{
    QQuickItem *root = build();
    m_screen.open();
    Operator::settle();
    m_engine.reset();
    for (const auto page : {AppRootItem::MenuIndex::Network, AppRootItem::MenuIndex::Language,
                            AppRootItem::MenuIndex::Version, AppRootItem::MenuIndex::Wifi})
        AppRootItem::instance()->setCurrentPage(page);
    GlobalInfo::switchLanguage(QLocale(QLocale::Chinese, QLocale::China));
    GlobalInfo::switchLanguage(QLocale(QLocale::English, QLocale::UnitedStates));
    m_screen.close();
    m_screen.open();
    Operator::settle();
    delete root;
    // And a new one in a new engine is whole.
    m_engine = std::make_unique<QQmlEngine>();
    root = build();
    QVERIFY(root);
    m_screen.open();
    AppRootItem::instance()->setCurrentPage(AppRootItem::MenuIndex::Version);
    QVERIFY(AppRootItem::instance()->getCardItem(AppRootItem::Cards::Version));
}

void TestImplSystemSet::titleHeightIsWhole()
{
    build();
    QCOMPARE(AppRootItem::instance()->titleHeight(), 71);
}

void TestImplSystemSet::dyingScreenTellsItsHostNothing()
{
    QQuickItem *root = build();
    m_screen.open();
    QVERIFY(root->isVisible());
    QSignalSpy changes(root, &QQuickItem::visibleChanged);
    delete root;
    QCOMPARE(changes.size(), 0);
}

PANEL_TEST_MAIN(TestImplSystemSet)

#include "test_implsystemset.moc"
