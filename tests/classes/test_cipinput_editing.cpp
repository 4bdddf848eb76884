#include "tests/classes/ipeditscene.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickrectangle_p.h>

using QSP::CIpInput;

/// Editing an address by touch, click and key.
class TestCIpInputEditing : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void typedAddressIsReportedOnce();
    void typedOnTheScreen();
    void theSameAgainIsNoEdit();
    void zerosAfterClearAreNoEdit();
    void leadingZerosAreDropped();
    void largeNumbersAndLettersAreRefused();
    void pastedRubbishIsRefused();
    void escapeRestores();
    void hideKeyRestores();
    void clearKeyEmpties();
    void enterEnds_data();
    void enterEnds();
    void fieldToFieldKeepsKeyboardAndEdit();
    void focusJumpsBetweenTwoInputs();
    void frameShowsTheFocus();
    void beepsOncePerField();
    void columnSlidesForTheLowestField();
    void settingWhileEditingIsNoEdit();
    void disabledWhileEditing();
    void hiddenWhileEditing();
    void screenClosedWhileEditing();
    void keyStorm();

private:
    QQuickTextInput *field(int i) const { return m_scene->box(i); }
    void enter(int i, const QString &digits) { m_scene->enter(i, digits); }
    void key(int code) { m_scene->key(code); }
    QString shown() const { return m_scene->shown(); }

    std::unique_ptr<IpEditScene> m_scene;
};

void TestCIpInputEditing::init()
{
    beginWatch();
    m_scene = std::make_unique<IpEditScene>();
}

void TestCIpInputEditing::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestCIpInputEditing::typedAddressIsReportedOnce()
{
    QStringList order;
    connect(m_scene->ip, &CIpInput::ipChanged, this,
            [order = &order] { *order << QStringLiteral("ipChanged"); });
    connect(m_scene->ip, &CIpInput::ipChangedByEdit, this,
            [order = &order](unsigned int ip) { *order << QString::number(ip); });
    enter(0, QStringLiteral("192"));
    QVERIFY(m_scene->ip->editing());
    enter(1, QStringLiteral("168"));
    enter(2, QStringLiteral("1"));
    enter(3, QStringLiteral("10"));
    QCOMPARE(order, QStringList());
    key(Qt::Key_Return);
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(order, QStringList({QStringLiteral("ipChanged"), QStringLiteral("3232235786")}));
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("192.168.1.10"));
}

void TestCIpInputEditing::typedOnTheScreen()
{
    Operator::touch(field(3));
    QVERIFY(ControlScene::isKeyboardShown());
    Operator::settle();
    for (const char *name : {"2", "5", "4"})
        Operator::touch(m_scene->keyboardKey(QLatin1String(name)));
    QCOMPARE(field(3)->text(), QStringLiteral("254"));
    QVERIFY(field(3)->hasActiveFocus());
    Operator::touch(m_scene->keyboardKey(QStringLiteral("enter")));
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(m_scene->edited.count(), 1);
    QCOMPARE(m_scene->edited.first().first().toUInt(), 0x0A141EFEU);
}

void TestCIpInputEditing::theSameAgainIsNoEdit()
{
    enter(0, QStringLiteral("10"));
    enter(3, QStringLiteral("040"));
    key(Qt::Key_Return);
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
}

void TestCIpInputEditing::zerosAfterClearAreNoEdit()
{
    m_scene->ip->clear();
    m_scene->changed.clear();
    enter(1, QStringLiteral("0"));
    key(Qt::Key_Return);
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
    QCOMPARE(m_scene->ip->ip(), QString());

    enter(1, QStringLiteral("7"));
    key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("0.7.0.0"));
    QCOMPARE(m_scene->edited.count(), 1);
    QCOMPARE(m_scene->edited.first().first().toUInt(), 0x00070000U);
}

void TestCIpInputEditing::leadingZerosAreDropped()
{
    enter(0, QStringLiteral("007"));
    enter(1, QStringLiteral("000"));
    QCOMPARE(field(0)->text(), QStringLiteral("7"));
    enter(2, QStringLiteral("0255"));
    key(Qt::Key_Enter);
    QCOMPARE(shown(), QStringLiteral("7.0.255.40"));
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("7.0.255.40"));
}

void TestCIpInputEditing::largeNumbersAndLettersAreRefused()
{
    enter(3, QStringLiteral("256"));
    QCOMPARE(field(3)->text(), QStringLiteral("25"));
    enter(1, QStringLiteral("a-9x9 !"));
    QCOMPARE(field(1)->text(), QStringLiteral("99"));
    key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("10.99.30.25"));
}

void TestCIpInputEditing::pastedRubbishIsRefused()
{
    for (const QString &rubbish :
         {QStringLiteral("1.2.3.4"), QStringLiteral("abc"), QStringLiteral("-1"), QStringLiteral("999"),
          QStringLiteral("\u0663"), QString(1000, QLatin1Char('9'))}) {
        QGuiApplication::clipboard()->setText(rubbish);
        Operator::tap(field(2));
        QTest::keyClick(m_scene->window(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY2(field(2)->text() == QLatin1String("30") || field(2)->text().isEmpty(),
                 qPrintable(field(2)->text()));
        key(Qt::Key_Escape);
        QCOMPARE(field(2)->text(), QStringLiteral("30"));
    }
    QGuiApplication::clipboard()->setText(QStringLiteral("77"));
    Operator::tap(field(2));
    QTest::keyClick(m_scene->window(), Qt::Key_V, Qt::ControlModifier);
    key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("10.20.77.40"));
}

void TestCIpInputEditing::escapeRestores()
{
    enter(2, QStringLiteral("99"));
    key(Qt::Key_Escape);
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
}

void TestCIpInputEditing::hideKeyRestores()
{
    enter(2, QStringLiteral("99"));
    Operator::settle();
    Operator::tap(m_scene->keyboardKey(QStringLiteral("hide")));
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
    // The same field can be entered again at once.
    enter(2, QStringLiteral("98"));
    QVERIFY(ControlScene::isKeyboardShown());
    key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("10.20.98.40"));
}

void TestCIpInputEditing::clearKeyEmpties()
{
    Operator::tap(field(1));
    Operator::settle();
    Operator::tap(m_scene->keyboardKey(QStringLiteral("clear")));
    QCOMPARE(field(1)->text(), QString());
    QVERIFY(field(1)->hasActiveFocus());
    key(Qt::Key_Return);
    QCOMPARE(shown(), QStringLiteral("10.0.30.40"));
    QCOMPARE(m_scene->edited.count(), 1);
}

void TestCIpInputEditing::enterEnds_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("Return") << static_cast<int>(Qt::Key_Return);
    QTest::newRow("Enter") << static_cast<int>(Qt::Key_Enter);
}

void TestCIpInputEditing::enterEnds()
{
    QFETCH(int, code);
    enter(0, QStringLiteral("11"));
    key(code);
    QVERIFY(!field(0)->hasFocus());
    QCOMPARE(m_scene->edited.count(), 1);
}

void TestCIpInputEditing::fieldToFieldKeepsKeyboardAndEdit()
{
    QSignalSpy editing(m_scene->ip, &CIpInput::editingChanged);
    QSignalSpy keyboard(&QSP::VkbManager::instance(), &QSP::VkbManager::visibleChanged);
    for (const int i : {0, 3, 1, 2}) {
        Operator::touch(field(i));
        QVERIFY(field(i)->hasActiveFocus());
        QCOMPARE(field(i)->selectedText(), field(i)->text());
        QVERIFY(ControlScene::isKeyboardShown());
        Operator::type(m_scene->window(), QString::number(i + 1));
    }
    QCOMPARE(editing.count(), 1);
    QCOMPARE(keyboard.count(), 1);
    key(Qt::Key_Return);
    QCOMPARE(editing.count(), 2);
    QCOMPARE(m_scene->edited.count(), 1);
    QCOMPARE(m_scene->edited.first().first().toUInt(), 0x01020304U);
}

void TestCIpInputEditing::focusJumpsBetweenTwoInputs()
{
    CIpInput *other = m_scene->addIp(90);
    QSignalSpy otherEdited(other, &CIpInput::ipChangedByEdit);
    for (int round = 1; round <= 20; ++round) {
        enter(0, QString::number(round + 100));
        QVERIFY(m_scene->ip->editing() && !other->editing());
        Operator::tap(AddressScene::box(other, 3));
        Operator::type(m_scene->window(), QString::number(round));
        QVERIFY(!m_scene->ip->editing() && other->editing());
        QVERIFY(AddressScene::box(other, 3)->hasActiveFocus());
        QVERIFY(ControlScene::isKeyboardShown());
        QCOMPARE(m_scene->edited.count(), round);
        QCOMPARE(otherEdited.count(), round - 1);
    }
    key(Qt::Key_Return);
    QCOMPARE(otherEdited.count(), 20);
    QCOMPARE(other->ip(), QStringLiteral("0.0.0.20"));
}

void TestCIpInputEditing::frameShowsTheFocus()
{
    auto *frame =
        qobject_cast<QQuickRectangle *>(Operator::byClass(field(1)->parentItem(), "QQuickRectangle"));
    Operator::tap(field(1));
    QCOMPARE(frame->border()->color(), QColor(0x32, 0x69, 0xCE));
    Operator::tap(field(0));
    QCOMPARE(frame->border()->color(), QColor(0xE2, 0xE2, 0xE2));
}

void TestCIpInputEditing::beepsOncePerField()
{
    Operator::tap(field(1));
    QCOMPARE(ControlScene::beeps(), 1);
    Operator::tap(field(1));
    QCOMPARE(ControlScene::beeps(), 1);
    Operator::tap(field(2));
    QCOMPARE(ControlScene::beeps(), 2);
    HmiSimulator::setBuzzerOn(false);
    Operator::tap(field(3));
    QCOMPARE(ControlScene::beeps(), 2);
}

void TestCIpInputEditing::columnSlidesForTheLowestField()
{
    QQuickItem *column = QSP::ScreenRoot::cardColumn();
    auto *row = new QQuickItem(column);
    row->setY(row->mapFromItem(m_scene->root(), QPointF(0.0, 540.0)).y());
    m_scene->ip->setParentItem(row);
    m_scene->page()->setVisible(false);
    m_scene->ip->setY(0.0);
    Operator::tap(field(2));
    QVERIFY(ControlScene::isKeyboardShown());
    QVERIFY(column->y() < 0.0);
    const QQuickItem *keyboard = Operator::byName(m_scene->glass(), QStringLiteral("vkbKeyboard"));
    QVERIFY(keyboard);
    QCOMPARE(field(2)->mapToScene({0.0, field(2)->height()}).y(), keyboard->mapToScene({}).y());
    key(Qt::Key_Escape);
    QCOMPARE(column->y(), 0.0);
}

void TestCIpInputEditing::settingWhileEditingIsNoEdit()
{
    enter(0, QStringLiteral("99"));
    m_scene->ip->setIp(QStringLiteral("1.2.3.4"));
    QVERIFY(m_scene->ip->editing());
    QCOMPARE(shown(), QStringLiteral("1.2.3.4"));
    key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("1.2.3.4"));
    QCOMPARE(m_scene->edited.count(), 0);
}

void TestCIpInputEditing::disabledWhileEditing()
{
    enter(0, QStringLiteral("99"));
    m_scene->ip->setEnabled(false);
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
    HmiSimulator::clearJournal();
    m_scene->ip->setEnabled(true);
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!field(0)->hasActiveFocus());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(ControlScene::beeps(), 0);
}

void TestCIpInputEditing::hiddenWhileEditing()
{
    enter(0, QStringLiteral("99"));
    enter(1, QStringLiteral("98"));
    m_scene->page()->setVisible(false);
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
    m_scene->page()->setVisible(true);
    QVERIFY(!m_scene->ip->editing());
}

void TestCIpInputEditing::screenClosedWhileEditing()
{
    enter(3, QStringLiteral("99"));
    m_scene->close();
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!ControlScene::isKeyboardShown());
    m_scene->open();
    QVERIFY(!m_scene->ip->editing());
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
    QCOMPARE(m_scene->edited.count(), 0);
}

void TestCIpInputEditing::keyStorm()
{
    const QVector<int> codes = {Qt::Key_0,
                                Qt::Key_1,
                                Qt::Key_5,
                                Qt::Key_9,
                                Qt::Key_A,
                                Qt::Key_Period,
                                Qt::Key_Clear,
                                Qt::Key_Left,
                                Qt::Key_Home,
                                Qt::Key_Backspace,
                                Qt::Key_Delete,
                                Qt::Key_Tab,
                                Qt::Key_Return,
                                Qt::Key_Enter,
                                Qt::Key_Escape,
                                Qt::Key_Space,
                                QSP::VkbManager::hideKey};
    QRandomGenerator random(7);
    QString reported = m_scene->ip->ip();
    connect(m_scene->ip, &CIpInput::ipChangedByEdit, this,
            [this, reported = &reported](unsigned int) { *reported = m_scene->ip->ip(); });
    for (int i = 0; i < 400; ++i) {
        if (i % 7 == 0)
            Operator::tap(field(random.bounded(4)));
        key(codes.at(random.bounded(codes.size())));
        for (int f = 0; f < 4; ++f)
            QVERIFY2(field(f)->text().toUInt() <= 255 && field(f)->text().size() <= 4,
                     qPrintable(field(f)->text()));
    }
    Operator::tap(field(0));
    key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), shown());
    QCOMPARE(m_scene->ip->ip(), reported);
    QVERIFY(!ControlScene::isKeyboardShown());
}

PANEL_TEST_MAIN(TestCIpInputEditing)

#include "test_cipinput_editing.moc"
