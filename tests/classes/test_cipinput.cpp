#include "tests/classes/addressscene.h"

#include <QtQml/QQmlComponent>
#include <QtQuick/private/qquickrectangle_p.h>

using QSP::CIpInput;

/// What an address input shows, stores and says.
class TestCIpInput : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsEmpty();
    void settingFillsTheFields();
    void settingStoresTheNormalForm();
    void setByItsDocument();
    void nothingButIPv4_data();
    void nothingButIPv4();
    void settingTheSameSaysNothing();
    void clearShowsZeros();
    void disabledIsGreyAndFrameless();
    void disabledParentCounts();
    void fontSizeReachesDigitsAndDots();
    void fieldsHaveTheirShape();
    void isAType();
    void needsAnEngine();
    void comesInEveryEngine();

private:
    QQuickTextInput *field(int i) const { return AddressScene::box(m_ip, i); }
    QString shown() const { return AddressScene::shown(m_ip); }

    std::unique_ptr<AddressScene> m_scene;
    CIpInput *m_ip = nullptr;
};

void TestCIpInput::init()
{
    beginWatch();
    m_scene = std::make_unique<AddressScene>();
    m_ip = m_scene->addIp(40);
}

void TestCIpInput::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestCIpInput::startsEmpty()
{
    QCOMPARE(m_ip->ip(), QString());
    QCOMPARE(shown(), QStringLiteral("0.0.0.0"));
    QCOMPARE(m_ip->fontPixelSize(), 20);
    QVERIFY(!m_ip->editing());
    QCOMPARE(m_ip->parentItem(), m_scene->page());
    QCOMPARE(m_ip->parent(), m_scene->page());
}

void TestCIpInput::settingFillsTheFields()
{
    QSignalSpy changed(m_ip, &CIpInput::ipChanged);
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    QVERIFY(m_ip->setProperty("ip", QStringLiteral("10.0.0.1")));
    QCOMPARE(shown(), QStringLiteral("10.0.0.1"));
    QCOMPARE(m_ip->property("ip").toString(), QStringLiteral("10.0.0.1"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(edited.count(), 0);
    m_ip->setIp(QStringLiteral("255.255.255.255"));
    QCOMPARE(shown(), QStringLiteral("255.255.255.255"));
}

void TestCIpInput::settingStoresTheNormalForm()
{
    m_ip->setIp(QStringLiteral("10.1"));
    QCOMPARE(m_ip->ip(), QStringLiteral("10.0.0.1"));
    QCOMPARE(shown(), QStringLiteral("10.0.0.1"));
}

// Properties that a document sets are there before the fields are.
void TestCIpInput::setByItsDocument()
{
    QQmlComponent component(m_scene->engine());
    component.setData(
        "import \"qrc:/setting/flatui\"\nIpInput { y: 90; width: 248; height: 35; ip: \"1.2.3.4\" }", QUrl());
    m_ip = qobject_cast<CIpInput *>(component.create());
    QVERIFY2(m_ip, qPrintable(component.errorString()));
    m_ip->setParent(m_scene->page());
    m_ip->setParentItem(m_scene->page());
    QCOMPARE(m_ip->ip(), QStringLiteral("1.2.3.4"));
    QCOMPARE(shown(), QStringLiteral("1.2.3.4"));
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    Operator::settle();
    Operator::tap(field(2));
    m_scene->key(Qt::Key_Return);
    QCOMPARE(edited.count(), 0);
    QCOMPARE(m_ip->ip(), QStringLiteral("1.2.3.4"));
}

void TestCIpInput::nothingButIPv4_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("IPv6") << QStringLiteral("fe80::1");
    QTest::newRow("empty") << QString();
    QTest::newRow("words") << QStringLiteral("not an address");
    QTest::newRow("too large") << QStringLiteral("256.1.1.1");
    QTest::newRow("five parts") << QStringLiteral("1.2.3.4.5");
    QTest::newRow("negative") << QStringLiteral("10.0.0.-1");
    QTest::newRow("dots") << QStringLiteral("...");
    QTest::newRow("very long") << QString(100000, QLatin1Char('1'));
}

void TestCIpInput::nothingButIPv4()
{
    QFETCH(QString, text);
    m_ip->setIp(QStringLiteral("192.168.1.10"));
    QSignalSpy changed(m_ip, &CIpInput::ipChanged);
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    m_ip->setIp(text);
    QCOMPARE(m_ip->ip(), QStringLiteral("192.168.1.10"));
    QCOMPARE(shown(), QStringLiteral("192.168.1.10"));
    QCOMPARE(changed.count() + edited.count(), 0);
}

void TestCIpInput::settingTheSameSaysNothing()
{
    m_ip->setIp(QStringLiteral("10.0.0.1"));
    QSignalSpy changed(m_ip, &CIpInput::ipChanged);
    m_ip->setIp(QStringLiteral("10.0.0.1"));
    QCOMPARE(changed.count(), 0);
}

void TestCIpInput::clearShowsZeros()
{
    m_ip->setIp(QStringLiteral("10.20.30.40"));
    QSignalSpy changed(m_ip, &CIpInput::ipChanged);
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    m_ip->clear();
    QCOMPARE(shown(), QStringLiteral("0.0.0.0"));
    QCOMPARE(m_ip->ip(), QString());
    QCOMPARE(changed.count(), 1);
    m_ip->clear();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(edited.count(), 0);
}

void TestCIpInput::disabledIsGreyAndFrameless()
{
    QCOMPARE(Operator::allByClass(m_ip, "QQuickRectangle").size(), 4);
    QCOMPARE(field(0)->color(), QColor(Qt::black));
    m_ip->setEnabled(false);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(field(i)->color(), QColor(180, 180, 180));
        QVERIFY(!field(i)->isEnabled());
    }
    QCOMPARE(Operator::allByClass(m_ip, "QQuickRectangle").size(), 0);

    Operator::tap(field(1));
    QVERIFY(!field(1)->hasActiveFocus());
    QVERIFY(!ControlScene::isKeyboardShown());

    m_ip->setEnabled(true);
    QCOMPARE(field(3)->color(), QColor(Qt::black));
    QCOMPARE(Operator::allByClass(m_ip, "QQuickRectangle").size(), 4);
}

void TestCIpInput::disabledParentCounts()
{
    m_scene->page()->setEnabled(false);
    CIpInput *born = CIpInput::create(m_scene->engine(), m_scene->page());
    const auto *first = born->property("ipi0").value<QQuickTextInput *>();
    QCOMPARE(field(2)->color(), QColor(180, 180, 180));
    QCOMPARE(first->color(), QColor(180, 180, 180));
    m_scene->page()->setEnabled(true);
    QCOMPARE(field(2)->color(), QColor(Qt::black));
    QCOMPARE(first->color(), QColor(Qt::black));
    QVERIFY(first->isEnabled());
}

void TestCIpInput::fontSizeReachesDigitsAndDots()
{
    QSignalSpy changed(m_ip, &CIpInput::fontPixelSizeChanged);
    m_ip->setFontPixelSize(17);
    m_ip->setFontPixelSize(17);
    QCOMPARE(changed.count(), 1);
    const auto texts =
        Operator::allByClass(m_ip, "QQuickText") + Operator::allByClass(m_ip, "QQuickTextInput");
    QCOMPARE(texts.size(), 7);
    for (const QQuickItem *text : texts)
        QCOMPARE(text->property("font").value<QFont>().pixelSize(), 17);
}

void TestCIpInput::fieldsHaveTheirShape()
{
    qreal right = -1.0;
    for (int i = 0; i < 4; ++i) {
        const QQuickItem *rect = field(i)->parentItem();
        QCOMPARE(rect->height(), 35.0);
        QCOMPARE(rect->width(), 1.528 * 35.0);
        QVERIFY(rect->x() > right);
        right = rect->x() + rect->width();
    }
    const auto frames = Operator::allByClass(m_ip, "QQuickRectangle");
    for (QQuickItem *item : frames) {
        auto *frame = qobject_cast<QQuickRectangle *>(item);
        QCOMPARE(frame->radius(), 4.0);
        QCOMPARE(frame->border()->width(), 1.0);
        QCOMPARE(frame->border()->color(), QColor(0xE2, 0xE2, 0xE2));
        QCOMPARE(frame->parentItem()->x() + frame->x(), std::round(frame->parentItem()->x()));
    }
}

void TestCIpInput::isAType()
{
    CIpInput::registerType();
    CIpInput::registerType();
    QVERIFY(qmlTypeId("QQuickSystemSet", 1, 0, "CIpInput") > 0);
}

void TestCIpInput::needsAnEngine()
{
    m_scene->end();
    QCOMPARE(CIpInput::create(nullptr, nullptr), nullptr);
}

void TestCIpInput::comesInEveryEngine()
{
    QQmlEngine another;
    const std::unique_ptr<CIpInput> guest(CIpInput::create(&another, nullptr));
    QVERIFY(guest);
    QCOMPARE(qmlEngine(guest.get()), &another);
    QCOMPARE(qmlEngine(m_ip), m_scene->engine());
}

PANEL_TEST_MAIN(TestCIpInput)

#include "test_cipinput.moc"
