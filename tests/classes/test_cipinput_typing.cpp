#include "tests/classes/ipeditscene.h"

#include <QtCore/QRandomGenerator>

using QSP::CIpInput;

/// An address typed in one go: which key leads to which of its four boxes.
class TestCIpInputTyping : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void typedInOneGo_data();
    void typedInOneGo();
    void typedOnTheScreen_data();
    void typedOnTheScreen();
    void digitsStayInTheirBox_data();
    void digitsStayInTheirBox();
    void dotInTheLastBox();
    void dotKeepsASelectedBox();
    void dotAfterAnEmptiedBox();
    void digitReplacesASelection();
    void cursorBetweenDigitsMovesNothing();
    void lastBoxRefuses();
    void backspaceMovesBack();
    void backspaceHeldEmptiesEverything();
    void commandsMoveNothing();
    void takenBackTogether_data();
    void takenBackTogether();
    void tapBeginsAnew();
    void tapIntoTheSameBoxBeginsAnew();
    void takenBackOverAWayBack();
    void movingIsNoEndAndNoTap();
    void tabGoesThroughTheBoxes();
    void releasedKeyMovesNothing();
    void anyKeysKeepBoxesWhole();

private:
    QQuickTextInput *box(int i) const { return m_scene->box(i); }
    QString shown() const { return m_scene->shown(); }
    /// The one box that the operator is in; -1 when there is none or more than one.
    int current() const;

    std::unique_ptr<IpEditScene> m_scene;
};

void TestCIpInputTyping::init()
{
    beginWatch();
    m_scene = std::make_unique<IpEditScene>();
}

void TestCIpInputTyping::cleanup()
{
    m_scene.reset();
    endWatch();
}

int TestCIpInputTyping::current() const
{
    int found = -1;
    for (int i = 0; i < 4; ++i) {
        if (box(i)->hasActiveFocus())
            found = found < 0 ? i : 4;
    }
    return found < 4 ? found : -1;
}

void TestCIpInputTyping::typedInOneGo_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("address");
    QTest::newRow("dots") << "192.168.1.10"
                          << "192.168.1.10";
    QTest::newRow("dots after short numbers alone") << "1921681.10"
                                                    << "192.168.1.10";
    QTest::newRow("full boxes") << "192168100200"
                                << "192.168.100.200";
    QTest::newRow("too large for the boxes") << "256.300.5"
                                             << "25.6.30.5";
    QTest::newRow("zeros") << "0.0.0.0"
                           << "0.0.0.0";
    QTest::newRow("leading zeros") << "010.001.000.099"
                                   << "10.1.0.99";
    QTest::newRow("zero before a digit") << "01.02.03.04"
                                         << "1.2.3.4";
    QTest::newRow("the first only") << "7"
                                    << "7.20.30.40";
    QTest::newRow("the first two") << "7.8"
                                   << "7.8.30.40";
    QTest::newRow("a dot at the end") << "7."
                                      << "7.20.30.40";
    QTest::newRow("mask") << "255.255.255.0"
                          << "255.255.255.0";
    QTest::newRow("mask without dots") << "2552552550"
                                       << "255.255.255.0";
    QTest::newRow("letters between") << "1a9b2.1-6 8x.1.1 0"
                                     << "192.168.1.10";
}

void TestCIpInputTyping::typedInOneGo()
{
    QFETCH(QString, typed);
    QFETCH(QString, address);
    Operator::tap(box(0));
    m_scene->type(typed);
    QVERIFY(m_scene->ip->editing());
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
    m_scene->key(Qt::Key_Return);
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(m_scene->ip->ip(), address);
    QCOMPARE(shown(), address);
    QCOMPARE(m_scene->changed.count(), 1);
    QCOMPARE(m_scene->edited.count(), 1);
}

void TestCIpInputTyping::typedOnTheScreen_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1024x600") << QSize(1024, 600);
    QTest::newRow("480x800") << QSize(480, 800);
}

void TestCIpInputTyping::typedOnTheScreen()
{
    QFETCH(QSize, size);
    m_scene = std::make_unique<IpEditScene>(size);
    m_scene->ip->clear();
    Operator::touch(box(0));
    Operator::settle();
    const QString keys = QStringLiteral("192.168.1.10");
    for (const QChar key : keys) {
        Operator::touch(m_scene->keyboardKey(key));
        QVERIFY(ControlScene::isKeyboardShown());
    }
    QCOMPARE(current(), 3);
    for (int i = 0; i < 3; ++i)
        Operator::touch(m_scene->keyboardKey(QStringLiteral("backspace")));
    QCOMPARE(current(), 2);
    Operator::touch(m_scene->keyboardKey(QStringLiteral("5")));
    Operator::touch(m_scene->keyboardKey(QStringLiteral("enter")));
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("192.168.5.0"));
    QCOMPARE(m_scene->edited.count(), 1);
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(ControlScene::beeps(), 1);
}

void TestCIpInputTyping::digitsStayInTheirBox_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("at");
    QTest::addColumn<QString>("address");
    QTest::newRow("two of three") << "19" << 0 << "19.20.30.40";
    QTest::newRow("full") << "192" << 0 << "192.20.30.40";
    QTest::newRow("one too many") << "1921" << 1 << "192.1.30.40";
    QTest::newRow("255") << "255" << 0 << "255.20.30.40";
    QTest::newRow("256") << "256" << 1 << "25.6.30.40";
    QTest::newRow("300") << "300" << 1 << "30.0.30.40";
    QTest::newRow("zero first") << "0255" << 0 << "0255.20.30.40";
    QTest::newRow("zero first and one too many") << "02551" << 1 << "255.1.30.40";
}

void TestCIpInputTyping::digitsStayInTheirBox()
{
    QFETCH(QString, typed);
    QFETCH(int, at);
    Operator::tap(box(0));
    m_scene->type(typed);
    QCOMPARE(current(), at);
    QTEST(shown(), "address");
}

void TestCIpInputTyping::dotInTheLastBox()
{
    m_scene->enter(3, QStringLiteral("7."));
    QCOMPARE(current(), 3);
    QCOMPARE(shown(), QStringLiteral("10.20.30.7"));
    m_scene->type(QStringLiteral("8"));
    QCOMPARE(shown(), QStringLiteral("10.20.30.78"));
}

// A box that is just entered is selected as a whole: the dot leaves it as it is.
void TestCIpInputTyping::dotKeepsASelectedBox()
{
    m_scene->enter(0, QStringLiteral("..5"));
    QCOMPARE(current(), 2);
    QCOMPARE(shown(), QStringLiteral("10.20.5.40"));
}

void TestCIpInputTyping::dotAfterAnEmptiedBox()
{
    Operator::tap(box(1));
    m_scene->key(Qt::Key_Clear);
    m_scene->type(QStringLiteral("."));
    QCOMPARE(current(), 2);
    QCOMPARE(shown(), QStringLiteral("10.0.30.40"));
}

void TestCIpInputTyping::digitReplacesASelection()
{
    m_scene->enter(1, QStringLiteral("255"));
    QTest::keyClick(m_scene->window(), Qt::Key_Left, Qt::ShiftModifier);
    m_scene->type(QStringLiteral("3"));
    QCOMPARE(current(), 1);
    QCOMPARE(shown(), QStringLiteral("10.253.30.40"));
}

void TestCIpInputTyping::cursorBetweenDigitsMovesNothing()
{
    m_scene->enter(1, QStringLiteral("200"));
    m_scene->key(Qt::Key_Home);
    m_scene->type(QStringLiteral("9"));
    QCOMPARE(current(), 1);
    QCOMPARE(shown(), QStringLiteral("10.200.30.40"));
}

void TestCIpInputTyping::lastBoxRefuses()
{
    m_scene->enter(3, QStringLiteral("2567"));
    QCOMPARE(current(), 3);
    QCOMPARE(shown(), QStringLiteral("10.20.30.25"));
}

void TestCIpInputTyping::backspaceMovesBack()
{
    m_scene->enter(0, QStringLiteral("1.2"));
    m_scene->key(Qt::Key_Backspace);
    QCOMPARE(current(), 1);
    QCOMPARE(box(1)->text(), QString());
    m_scene->key(Qt::Key_Backspace);
    QCOMPARE(current(), 0);
    QCOMPARE(box(0)->selectedText(), QStringLiteral("1"));
    QCOMPARE(shown(), QStringLiteral("1.0.30.40"));
    m_scene->type(QStringLiteral("9.8"));
    QCOMPARE(shown(), QStringLiteral("9.8.30.40"));
}

void TestCIpInputTyping::backspaceHeldEmptiesEverything()
{
    Operator::tap(box(3));
    for (int i = 0; i < 20; ++i)
        m_scene->key(Qt::Key_Backspace);
    QCOMPARE(current(), 0);
    QVERIFY(m_scene->ip->editing());
    m_scene->key(Qt::Key_Return);
    QCOMPARE(shown(), QStringLiteral("0.0.0.0"));
    QCOMPARE(m_scene->edited.count(), 1);
}

void TestCIpInputTyping::commandsMoveNothing()
{
    m_scene->enter(1, QStringLiteral("255"));
    QTest::keyClick(m_scene->window(), Qt::Key_Period, Qt::ControlModifier);
    QTest::keyClick(m_scene->window(), Qt::Key_5, Qt::AltModifier);
    QCOMPARE(current(), 1);
    m_scene->key(Qt::Key_Clear);
    QTest::keyClick(m_scene->window(), Qt::Key_Backspace, Qt::ControlModifier);
    QCOMPARE(current(), 1);
}

void TestCIpInputTyping::takenBackTogether_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("Escape") << static_cast<int>(Qt::Key_Escape);
    QTest::newRow("hide key") << QSP::VkbManager::hideKey;
}

void TestCIpInputTyping::takenBackTogether()
{
    QFETCH(int, code);
    m_scene->enter(0, QStringLiteral("192.168.1.10"));
    m_scene->key(code);
    QVERIFY(!m_scene->ip->editing());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
}

void TestCIpInputTyping::tapBeginsAnew()
{
    m_scene->enter(0, QStringLiteral("1.2"));
    m_scene->enter(2, QStringLiteral("3.4"));
    m_scene->key(Qt::Key_Escape);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("1.2.30.40"));
    QCOMPARE(m_scene->edited.count(), 1);
}

void TestCIpInputTyping::tapIntoTheSameBoxBeginsAnew()
{
    m_scene->enter(0, QStringLiteral("1.2"));
    Operator::tap(box(1));
    m_scene->type(QStringLiteral("3.4"));
    m_scene->key(Qt::Key_Escape);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("1.20.30.40"));
}

void TestCIpInputTyping::takenBackOverAWayBack()
{
    m_scene->enter(1, QStringLiteral("7.8"));
    for (int i = 0; i < 3; ++i)
        m_scene->key(Qt::Key_Backspace);
    QCOMPARE(current(), 1);
    m_scene->type(QStringLiteral("9"));
    m_scene->key(Qt::Key_Escape);
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
    QCOMPARE(m_scene->edited.count(), 0);
}

void TestCIpInputTyping::movingIsNoEndAndNoTap()
{
    const QSignalSpy editing(m_scene->ip, &CIpInput::editingChanged);
    const QSignalSpy keyboard(&QSP::VkbManager::instance(), &QSP::VkbManager::visibleChanged);
    m_scene->enter(0, QStringLiteral("192.1681.1"));
    m_scene->key(Qt::Key_Backspace);
    m_scene->key(Qt::Key_Backspace);
    QCOMPARE(current(), 2);
    QCOMPARE(editing.count(), 1);
    QCOMPARE(keyboard.count(), 1);
    QCOMPARE(ControlScene::beeps(), 1);
    // A tap after it is one.
    Operator::tap(box(0));
    QCOMPARE(ControlScene::beeps(), 2);
}

void TestCIpInputTyping::tabGoesThroughTheBoxes()
{
    Operator::tap(box(0));
    for (const int next : {1, 2, 3}) {
        m_scene->key(Qt::Key_Tab);
        QCOMPARE(current(), next);
    }
    for (const int next : {2, 1, 0}) {
        m_scene->key(Qt::Key_Backtab);
        QCOMPARE(current(), next);
    }
    QVERIFY(m_scene->ip->editing());
    QCOMPARE(ControlScene::beeps(), 1);
    m_scene->type(QStringLiteral("1"));
    m_scene->key(Qt::Key_Tab);
    m_scene->type(QStringLiteral("2"));
    m_scene->key(Qt::Key_Escape);
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));
    QCOMPARE(m_scene->edited.count(), 0);
}

void TestCIpInputTyping::releasedKeyMovesNothing()
{
    Operator::tap(box(0));
    QTest::keyPress(m_scene->window(), Qt::Key_Period);
    QCOMPARE(current(), 1);
    QTest::keyRelease(m_scene->window(), Qt::Key_Period);
    QCOMPARE(current(), 1);
}

void TestCIpInputTyping::anyKeysKeepBoxesWhole()
{
    const QVector<int> codes = {Qt::Key_0,      Qt::Key_1,         Qt::Key_5,      Qt::Key_9,
                                Qt::Key_Period, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left,
                                Qt::Key_Home,   Qt::Key_Clear,     Qt::Key_Tab,    Qt::Key_Backtab};
    QRandomGenerator random(3);
    for (int round = 0; round < 60; ++round) {
        const QString before = m_scene->ip->ip();
        m_scene->edited.clear();
        Operator::tap(box(random.bounded(4)));
        const bool tapsAlone = random.bounded(2) == 0;
        for (int i = 0; i < 12; ++i) {
            const int code = codes.at(random.bounded(codes.size()));
            if (!tapsAlone || (code != Qt::Key_Tab && code != Qt::Key_Backtab))
                m_scene->key(code);
            QVERIFY(current() >= 0 || !m_scene->ip->editing());
        }
        m_scene->key(random.bounded(2) == 0 ? Qt::Key_Return : Qt::Key_Escape);
        QCOMPARE(shown(), m_scene->ip->ip());
        QCOMPARE(m_scene->edited.count(), m_scene->ip->ip() == before ? 0 : 1);
    }
}

PANEL_TEST_MAIN(TestCIpInputTyping)

#include "test_cipinput_typing.moc"
