#include "shell/base/embeddedcomponent.h"

#include "tests/support/paneltest.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>
#include <QtNetwork/QTcpServer>
#include <QtQml/QQmlAbstractUrlInterceptor>
#include <QtQml/QQmlEngine>
#include <QtQml/QQmlFileSelector>
#include <QtQuick/private/qquickrectangle_p.h>

#include <memory>

using QSP::EmbeddedComponent;

/// Documents that are right, wrong and of another kind, read at once and in the background.
class TestEmbeddedComponent : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void isReadOnceAnEngine();
    void prefetchedIsReady_data();
    void prefetchedIsReady();
    void brokenIsReportedOnce_data();
    void brokenIsReportedOnce();
    void nothingToRead();
    void itemIsPreparedBeforeItIsComplete();
    void anotherRootLeavesNothing();
    void engineMayDieWhileItReads();
    void interceptedIsReadAtOnce();
    void fileSelectorsMayChoose();

private:
    QUrl document(const char *name, const char *text) const;

    QTemporaryDir m_directory;
    std::unique_ptr<QQmlEngine> m_engine;
};

void TestEmbeddedComponent::init()
{
    beginWatch();
    m_engine = std::make_unique<QQmlEngine>();
}

QUrl TestEmbeddedComponent::document(const char *name, const char *text) const
{
    QFile file(m_directory.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) < 0)
        return {};
    return QUrl::fromLocalFile(file.fileName());
}

void TestEmbeddedComponent::isReadOnceAnEngine()
{
    EmbeddedComponent component;
    const QUrl url = document("Plain.qml", "import QtQuick 2.15\nItem {}");
    QQmlComponent *first = component.get(url, m_engine.get());
    QVERIFY(first);
    QCOMPARE(component.get(url, m_engine.get()), first);
    QQmlEngine other;
    QQmlComponent *second = component.get(url, &other);
    QVERIFY(second);
    QCOMPARE(second->engine(), &other);
}

void TestEmbeddedComponent::prefetchedIsReady_data()
{
    QTest::addColumn<bool>("isWaitedFor");
    QTest::newRow("while it is read") << false;
    QTest::newRow("when it was read") << true;
}

void TestEmbeddedComponent::prefetchedIsReady()
{
    QFETCH(bool, isWaitedFor);
    EmbeddedComponent component;
    const QUrl url = document("Plain.qml", "import QtQuick 2.15\nRectangle { width: 7 }");
    QVERIFY(component.prefetch(url, m_engine.get()));
    if (isWaitedFor)
        QTRY_VERIFY(!component.prefetch(url, m_engine.get()));
    const std::unique_ptr<QQuickItem> item(component.create(url, nullptr, m_engine.get()));
    QVERIFY(item);
    QCOMPARE(item->width(), 7.0);
    QVERIFY(!component.prefetch(url, m_engine.get()));
}

void TestEmbeddedComponent::brokenIsReportedOnce_data()
{
    QTest::addColumn<bool>("isPrefetched");
    QTest::addColumn<bool>("isWaitedFor");
    QTest::newRow("at once") << false << false;
    QTest::newRow("while it is read") << true << false;
    QTest::newRow("when it was read") << true << true;
}

void TestEmbeddedComponent::brokenIsReportedOnce()
{
    QFETCH(bool, isPrefetched);
    QFETCH(bool, isWaitedFor);
    EmbeddedComponent component;
    const QUrl url = document("Broken.qml", "import QtQuick 2.15\nItem { nonsense }");
    if (isPrefetched)
        component.prefetch(url, m_engine.get());
    if (isWaitedFor)
        QTRY_VERIFY(!component.prefetch(url, m_engine.get()));
    expectMessage(QStringLiteral("Broken\\.qml:2"));
    QVERIFY(!component.get(url, m_engine.get()));
    QVERIFY(!component.get(url, m_engine.get()));
    QVERIFY(!component.create(url, nullptr, m_engine.get()));
}

void TestEmbeddedComponent::nothingToRead()
{
    EmbeddedComponent component;
    QVERIFY(!component.prefetch({}, m_engine.get()));
    QVERIFY(!component.get({}, m_engine.get()));
    QVERIFY(!component.create({}, nullptr, m_engine.get()));
    // No screen was made in this process, so there is no engine to take its place.
    QVERIFY(!component.prefetch(QUrl(QStringLiteral("qrc:/setting/main.qml"))));
    QVERIFY(!component.get(QUrl(QStringLiteral("qrc:/setting/main.qml"))));
}

void TestEmbeddedComponent::itemIsPreparedBeforeItIsComplete()
{
    EmbeddedComponent component;
    const QUrl url = document("Seen.qml", R"(import QtQuick 2.15
Item {
    property real seen: -1
    property bool hasParent: false
    Component.onCompleted: { seen = width; hasParent = parent !== null; }
})");
    QQuickItem parent;
    const QQuickItem *item =
        component.create(url, &parent, m_engine.get(), [](QQuickItem *made) { made->setWidth(11.0); });
    QVERIFY(item);
    QCOMPARE(item->property("seen").toReal(), 11.0);
    QVERIFY(item->property("hasParent").toBool());
    QCOMPARE(item->parentItem(), &parent);
    QCOMPARE(item->parent(), &parent);
}

void TestEmbeddedComponent::anotherRootLeavesNothing()
{
    EmbeddedComponent component;
    QQuickItem parent;
    const QUrl plain = document("Plain.qml", "import QtQuick 2.15\nItem {}");
    QVERIFY(!component.create<QQuickRectangle>(plain, &parent, m_engine.get()));
    QVERIFY(parent.childItems().isEmpty());
    QVERIFY(parent.children().isEmpty());

    EmbeddedComponent noItem;
    const QUrl object = document("Object.qml", "import QtQml 2.15\nQtObject {}");
    QVERIFY(!noItem.create(object, &parent, m_engine.get()));
    QVERIFY(parent.children().isEmpty());
    QVERIFY(!EmbeddedComponent::createItem(nullptr, &parent));
}

void TestEmbeddedComponent::engineMayDieWhileItReads()
{
    EmbeddedComponent component;
    const QUrl url = document("Plain.qml", "import QtQuick 2.15\nItem {}");
    component.prefetch(url, m_engine.get());
    m_engine = std::make_unique<QQmlEngine>();
    QVERIFY(component.get(url, m_engine.get()));
}

// An interceptor may lead a document to a network, whose answer nobody may wait for.
void TestEmbeddedComponent::interceptedIsReadAtOnce()
{
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    struct LeadAway : QQmlAbstractUrlInterceptor {
        QUrl intercept(const QUrl &url, DataType) override
        {
            return url.fileName() == QLatin1String("Far.qml") ? far : url;
        }
        QUrl far;
    } leadAway;
    leadAway.far = QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(silent.serverPort()));
    m_engine->setUrlInterceptor(&leadAway);
    const QUrl near = document("Plain.qml", "import QtQuick 2.15\nItem {}");
    EmbeddedComponent component;
    QVERIFY(!component.prefetch(near, m_engine.get()));
    QVERIFY(component.get(near, m_engine.get()));

    EmbeddedComponent other;
    const QUrl far = document("Far.qml", "import QtQuick 2.15\nItem {}");
    QVERIFY(!other.prefetch(far, m_engine.get()));
    expectMessage(QStringLiteral("Far\\.qml: cannot be read at once$"));
    // Whoever waited for that server would wait for ever.
    QVERIFY(!other.get(far, m_engine.get()));
    m_engine.reset();
}

void TestEmbeddedComponent::fileSelectorsMayChoose()
{
    const QQmlFileSelector selector(m_engine.get());
    EmbeddedComponent component;
    const QUrl url = document("Plain.qml", "import QtQuick 2.15\nItem {}");
    QVERIFY(component.prefetch(url, m_engine.get()));
    QVERIFY(component.get(url, m_engine.get()));
}

PANEL_TEST_MAIN(TestEmbeddedComponent)

#include "test_embeddedcomponent.moc"
