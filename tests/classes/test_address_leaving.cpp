#include "tests/classes/addressscene.h"

#include <QtQml/QQmlComponent>

using QSP::CIpInput;
using QSP::CMacInput;

namespace {

constexpr HMI::MAC someMac{0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e};

} // namespace

/// Address inputs that are taken out of their window in the middle of an edit.
class TestAddressLeaving : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void addressIsTakenBack_data() { ways(); }
    void addressIsTakenBack();
    void hardwareAddressIsTakenBack_data() { ways(); }
    void hardwareAddressIsTakenBack();
    void owedRefreshIsShown();
    void anotherScopeEndsTheEditAsAnyField();
    void deletedFieldTakesTheKeyboardAlong();
    void deletedFieldLeavesTheKeyboardToAnother();
    void screenDeleted_data();
    void screenDeleted();
    void windowDeleted();
    void windowDeletedAroundTheScreen_data();
    void windowDeletedAroundTheScreen();
    void deletedWhileDisabledOrHidden();

private:
    static void ways();
    void build(bool withScope);
    /// Whether the inputs live on.
    bool leave(const QString &way);
    void comeBack();

    std::unique_ptr<AddressScene> m_scene;
    std::unique_ptr<QQuickWindow> m_otherWindow;
    QQuickItem *m_loader = nullptr;
    QQuickItem *m_around = nullptr;
    QPointer<CIpInput> m_ip;
    QPointer<CMacInput> m_mac;
};

void TestAddressLeaving::init()
{
    beginWatch();
    m_scene = std::make_unique<AddressScene>();
}

void TestAddressLeaving::cleanup()
{
    m_scene.reset();
    m_otherWindow.reset();
    endWatch();
}

void TestAddressLeaving::ways()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"input detached", "item around it detached", "item around it deleted",
                            "focus scope around it detached", "focus scope around it deleted", "other window",
                            "loader inactive", "loader deleted", "root detached", "root in another window"})
        QTest::newRow(way) << way;
}

// Both inputs in an item, as in a row of a card, and that in an item that a loader made.
void TestAddressLeaving::build(bool withScope)
{
    QQmlComponent component(m_scene->engine());
    component.setData("import QtQuick 2.15\n"
                      "Loader {\n"
                      "  sourceComponent: Component { Item { Item { width: 400; height: 400 } } }\n"
                      "}",
                      QUrl());
    m_loader = qobject_cast<QQuickItem *>(component.create());
    m_loader->setParent(m_scene->page());
    m_loader->setParentItem(m_scene->page());
    m_around = m_loader->property("item").value<QQuickItem *>()->childItems().constFirst();
    m_around->setFlag(QQuickItem::ItemIsFocusScope, withScope);
    m_ip = m_scene->addIp(40, m_around);
    m_ip->setIp(QStringLiteral("10.20.30.40"));
    m_mac = m_scene->addMac(90, m_around);
    m_mac->setMac(someMac);
}

bool TestAddressLeaving::leave(const QString &way)
{
    if (way.contains(QLatin1String("window")))
        m_otherWindow = std::make_unique<QQuickWindow>();
    if (way.contains(QLatin1String("deleted"))) {
        delete (way.startsWith(QLatin1String("loader")) ? m_loader : m_around);
        return false;
    }
    QQuickItem *input =
        AddressScene::box(m_ip, 0)->hasActiveFocus() ? static_cast<QQuickItem *>(m_ip.data()) : m_mac.data();
    if (way == QLatin1String("input detached"))
        input->setParentItem(nullptr);
    else if (way == QLatin1String("other window"))
        m_around->setParentItem(m_otherWindow->contentItem());
    else if (way == QLatin1String("loader inactive"))
        m_loader->setProperty("active", false);
    else if (way == QLatin1String("root detached"))
        m_scene->root()->setParentItem(nullptr);
    else if (way == QLatin1String("root in another window"))
        m_scene->root()->setParentItem(m_otherWindow->contentItem());
    else
        m_around->setParentItem(nullptr);
    return true;
}

// Into the window again, whatever had been taken out of it.
void TestAddressLeaving::comeBack()
{
    m_scene->root()->setParentItem(m_scene->glass());
    m_around->setParentItem(m_scene->page());
    m_ip->setParentItem(m_around);
    m_mac->setParentItem(m_around);
    Operator::settle();
}

void TestAddressLeaving::addressIsTakenBack()
{
    QFETCH(QString, way);
    build(way.startsWith(QLatin1String("focus scope")));
    QSignalSpy changed(m_ip, &CIpInput::ipChanged);
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    m_scene->enter(m_ip, 1, QStringLiteral("99"));
    m_scene->enter(m_ip, 0, QStringLiteral("98"));
    QVERIFY(m_ip->editing() && ControlScene::isKeyboardShown());
    HmiSimulator::clearJournal();

    const bool livesOn = leave(way);
    QCOMPARE(changed.count() + edited.count(), 0);
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(ControlScene::beeps(), 0);
    if (!livesOn) {
        QVERIFY(!m_ip);
        return;
    }
    QVERIFY(m_ip && !m_ip->editing());
    QCOMPARE(AddressScene::shown(m_ip), QStringLiteral("10.20.30.40"));
    if (way == QLatin1String("loader inactive"))
        return;

    comeBack();
    QVERIFY2(!m_ip->editing() && !AddressScene::box(m_ip, 0)->hasFocus(), "the focus came back uncalled");
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(ControlScene::beeps(), 0);
    m_scene->enter(m_ip, 0, QStringLiteral("97"));
    m_scene->key(Qt::Key_Return);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(m_ip->ip(), QStringLiteral("97.20.30.40"));
}

void TestAddressLeaving::hardwareAddressIsTakenBack()
{
    QFETCH(QString, way);
    build(way.startsWith(QLatin1String("focus scope")));
    QSignalSpy edited(m_mac, &CMacInput::macChangedByEdit);
    m_scene->enter(m_mac, QStringLiteral("AABBCC"));
    QVERIFY(ControlScene::isKeyboardShown());
    HmiSimulator::clearJournal();

    const bool livesOn = leave(way);
    QCOMPARE(edited.count(), 0);
    QVERIFY(!ControlScene::isKeyboardShown());
    if (!livesOn) {
        QVERIFY(!m_mac);
        return;
    }
    QVERIFY(m_mac);
    QCOMPARE(m_mac->mac(), someMac);
    if (way == QLatin1String("loader inactive"))
        return;

    comeBack();
    QVERIFY2(!AddressScene::field(m_mac)->hasFocus(), "the focus came back uncalled");
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(ControlScene::beeps(), 0);
    m_scene->enter(m_mac, QStringLiteral("AA"));
    m_scene->key(Qt::Key_Return);
    QCOMPARE(edited.count(), 1);
}

void TestAddressLeaving::owedRefreshIsShown()
{
    build(false);
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    m_scene->enter(m_ip, 0, QStringLiteral("98"));
    m_ip->refreshIp(QStringLiteral("8.8.8.8"));
    m_around->setParentItem(nullptr);
    QCOMPARE(m_ip->ip(), QStringLiteral("8.8.8.8"));
    QCOMPARE(AddressScene::shown(m_ip), QStringLiteral("8.8.8.8"));
    QCOMPARE(edited.count(), 0);
}

// A loss like that of a removal, but the operator's own doing: the field keeps its focus inside its scope.
void TestAddressLeaving::anotherScopeEndsTheEditAsAnyField()
{
    build(true);
    auto *otherScope = new QQuickItem(m_scene->page());
    otherScope->setFlag(QQuickItem::ItemIsFocusScope);
    CIpInput *other = m_scene->addIp(140, otherScope);
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    m_scene->enter(m_ip, 0, QStringLiteral("98"));
    Operator::tap(AddressScene::box(other, 0));
    QVERIFY(AddressScene::box(m_ip, 0)->hasFocus());
    QCOMPARE(edited.count(), 1);
    QCOMPARE(m_ip->ip(), QStringLiteral("98.20.30.40"));
    QVERIFY(ControlScene::isKeyboardShown());
}

void TestAddressLeaving::deletedFieldTakesTheKeyboardAlong()
{
    build(false);
    CIpInput *other = m_scene->addIp(140);
    int reports = 0;
    connect(m_ip, &CIpInput::ipChanged, this, [reports = &reports] { ++*reports; });
    connect(m_ip, &CIpInput::editingChanged, this, [reports = &reports] { ++*reports; });
    connect(m_mac, &CMacInput::macChangedByEdit, this, [reports = &reports] { ++*reports; });
    m_scene->enter(m_ip, 0, QStringLiteral("99"));
    QCOMPARE(reports, 1);
    HmiSimulator::clearJournal();
    delete m_ip;
    QCOMPARE(reports, 1);
    QCOMPARE(HmiSimulator::calls().size(), 0U);
    QVERIFY(!ControlScene::isKeyboardShown());

    m_scene->enter(m_mac, QStringLiteral("AA"));
    QVERIFY(ControlScene::isKeyboardShown());
    HmiSimulator::clearJournal();
    delete m_mac;
    QCOMPARE(reports, 1);
    QCOMPARE(HmiSimulator::calls().size(), 0U);
    QVERIFY(!ControlScene::isKeyboardShown());

    // The next field works as if nothing had been.
    m_scene->enter(other, 0, QStringLiteral("5"));
    QVERIFY(ControlScene::isKeyboardShown());
    m_scene->key(Qt::Key_Return);
    QCOMPARE(other->ip(), QStringLiteral("5.0.0.0"));
    QVERIFY(!ControlScene::isKeyboardShown());
}

void TestAddressLeaving::deletedFieldLeavesTheKeyboardToAnother()
{
    build(false);
    CIpInput *other = m_scene->addIp(140);
    m_scene->enter(m_ip, 0, QStringLiteral("99"));
    m_scene->enter(other, 0, QStringLiteral("5"));
    delete m_ip;
    delete m_mac;
    QVERIFY(other->editing());
    QVERIFY(ControlScene::isKeyboardShown());
}

void TestAddressLeaving::screenDeleted_data()
{
    QTest::addColumn<QString>("state");
    for (const char *state : {"half typed", "emptied", "hardware address"})
        QTest::newRow(state) << state;
}

// As a host may: it deletes the root and keeps its window.
void TestAddressLeaving::screenDeleted()
{
    QFETCH(QString, state);
    build(false);
    QSignalSpy changed(m_ip, &CIpInput::ipChanged);
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    QSignalSpy accepted(m_mac, &CMacInput::macChangedByEdit);
    if (state == QLatin1String("hardware address")) {
        m_scene->enter(m_mac, QStringLiteral("AABB"));
        m_scene->key(Qt::Key_End);
        m_scene->key(Qt::Key_Backspace);
        QVERIFY(!AddressScene::field(m_mac)->hasAcceptableInput());
    } else {
        m_scene->enter(m_ip, 0, QStringLiteral("99"));
    }
    if (state == QLatin1String("emptied"))
        m_scene->key(Qt::Key_Clear);
    delete m_scene->root();
    QCOMPARE(changed.count() + edited.count() + accepted.count(), 0);
    QVERIFY2(!ControlScene::isKeyboardShown(), "the keyboard stays over the host's page");
    m_scene->type(QStringLiteral("7"));
}

void TestAddressLeaving::windowDeleted()
{
    build(false);
    QSignalSpy changed(m_ip, &CIpInput::ipChanged);
    QSignalSpy edited(m_ip, &CIpInput::ipChangedByEdit);
    m_scene->enter(m_ip, 0, QStringLiteral("99"));
    HmiSimulator::clearJournal();
    m_scene->end();
    QCOMPARE(changed.count() + edited.count(), 0);
    QCOMPARE(HmiSimulator::calls().size(), 0U);
}

void TestAddressLeaving::windowDeletedAroundTheScreen_data()
{
    QTest::addColumn<bool>("hardware");
    QTest::newRow("address") << false;
    QTest::newRow("hardware address") << true;
}

// The screen lives on, for another window.
void TestAddressLeaving::windowDeletedAroundTheScreen()
{
    QFETCH(bool, hardware);
    build(false);
    const std::unique_ptr<QQuickItem> root(m_scene->root());
    root->setParent(nullptr);
    if (hardware)
        m_scene->enter(m_mac, QStringLiteral("AABBCC"));
    else
        m_scene->enter(m_ip, 0, QStringLiteral("99"));
    m_scene->endWindow();
    QCOMPARE(m_mac->mac(), someMac);
    QCOMPARE(AddressScene::shown(m_ip), QStringLiteral("10.20.30.40"));
    QVERIFY(!AddressScene::field(m_mac)->hasFocus() && !m_ip->editing());
}

void TestAddressLeaving::deletedWhileDisabledOrHidden()
{
    build(false);
    CIpInput *other = m_scene->addIp(140);
    QStringList told;
    for (const CIpInput *ip : {m_ip.data(), other}) {
        connect(ip, &CIpInput::ipChanged, this, [told = &told] { *told << QStringLiteral("ip"); });
        connect(ip, &CIpInput::editingChanged, this, [told = &told] { *told << QStringLiteral("editing"); });
    }
    m_scene->page()->setEnabled(false);
    delete other;
    m_scene->page()->setVisible(false);
    delete m_ip;
    QCOMPARE(told, QStringList());
}

PANEL_TEST_MAIN(TestAddressLeaving)

#include "test_address_leaving.moc"
