#include "controls/cmacinput.h"
#include "tests/classes/controlscene.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktextinput_p.h>

using QSP::CMacInput;

namespace {

constexpr HMI::MAC someMac{0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e};
constexpr HMI::MAC typedMac{0xaa, 0xbb, 0xcc, 0xdd, 0xee, 0xff};

} // namespace

class TestCMacInput : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsWithZeros();
    void showsUpperCase();
    void typedAddressIsReported_data();
    void typedAddressIsReported();
    void typedOnTheScreen();
    void acceptingTwiceReportsTwice();
    void reportTravelsQueued();
    void escapeRestores();
    void hideKeyRestores();
    void settingMovesWhatEscapeGoesBackTo();
    void halfAnAddressIsNotAccepted();
    void halfAnAddressIsNotLeftBehind();
    void digitsInTheMiddleAreTypedOver();
    void onlyHexDigits();
    void pastedRubbish();
    void leavingByTapReportsNothing();
    void disabledField();
    void disabledWhileEditing();
    void hiddenWhileEditing();
    void screenClosedWhileEditing();
    void looks();
    void withoutItsDocument();
    void keyStorm();

private:
    // With a text of its own, since the test library knows no text for the hide key.
    void key(int code)
    {
        const QString text = code < 0x80 ? QString(QChar(code)) : QString();
        QTest::sendKeyEvent(QTest::Click, m_scene->window(), static_cast<Qt::Key>(code), text,
                            Qt::NoModifier);
    }
    void type(const QString &digits)
    {
        Operator::tap(m_field);
        Operator::key(m_scene->window(), Qt::Key_Home);
        Operator::type(m_scene->window(), digits);
    }
    QVector<HMI::MAC> m_reported;

    std::unique_ptr<ControlScene> m_scene;
    CMacInput *m_mac = nullptr;
    QQuickTextInput *m_field = nullptr;
};

void TestCMacInput::init()
{
    beginWatch();
    m_reported.clear();
    m_scene = std::make_unique<ControlScene>();
    m_mac = CMacInput::create(m_scene->engine(), m_scene->page());
    QVERIFY(m_mac);
    m_mac->setPosition({20, 40});
    m_mac->setSize({248, 35});
    m_field = m_mac->property("input").value<QQuickTextInput *>();
    connect(m_mac, &CMacInput::macChangedByEdit, this, [this](HMI::MAC mac) { m_reported << mac; });
}

void TestCMacInput::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestCMacInput::startsWithZeros()
{
    QCOMPARE(m_mac->macString(), QStringLiteral("00:00:00:00:00:00"));
    QCOMPARE(m_mac->mac(), HMI::MAC{});
    QCOMPARE(m_mac->parentItem(), m_scene->page());
}

void TestCMacInput::showsUpperCase()
{
    m_mac->setMac(someMac);
    QCOMPARE(m_mac->macString(), QStringLiteral("00:1A:2B:3C:4D:5E"));
    QCOMPARE(m_mac->mac(), someMac);
    m_mac->setMac({0xff, 0xff, 0xff, 0xff, 0xff, 0xff});
    QCOMPARE(m_mac->macString(), QStringLiteral("FF:FF:FF:FF:FF:FF"));
    QVERIFY(m_reported.isEmpty());
}

void TestCMacInput::typedAddressIsReported_data()
{
    QTest::addColumn<QString>("digits");
    QTest::addColumn<int>("code");
    QTest::newRow("upper case, Return") << QStringLiteral("AABBCCDDEEFF") << static_cast<int>(Qt::Key_Return);
    QTest::newRow("lower case, Enter") << QStringLiteral("aabbccddeeff") << static_cast<int>(Qt::Key_Enter);
    QTest::newRow("with colons") << QStringLiteral("aa:bb:cc:dd:ee:ff") << static_cast<int>(Qt::Key_Return);
}

void TestCMacInput::typedAddressIsReported()
{
    QFETCH(QString, digits);
    QFETCH(int, code);
    type(digits);
    QVERIFY(ControlScene::isKeyboardShown());
    QVERIFY(m_reported.isEmpty());
    key(code);
    QCOMPARE(m_reported, QVector<HMI::MAC>{typedMac});
    QVERIFY(!m_field->hasFocus());
    QVERIFY(!ControlScene::isKeyboardShown());
}

void TestCMacInput::typedOnTheScreen()
{
    Operator::touch(m_field);
    QCOMPARE(ControlScene::beeps(), 1);
    Operator::settle();
    Operator::key(m_scene->window(), Qt::Key_Home);
    for (const char *name : {"0", "1", ":", "a", "b"})
        Operator::touch(m_scene->keyboardKey(QLatin1String(name)));
    QVERIFY(m_field->hasActiveFocus());
    Operator::touch(m_scene->keyboardKey(QStringLiteral("enter")));
    QCOMPARE(m_reported, (QVector<HMI::MAC>{{0x01, 0xab, 0, 0, 0, 0}}));
    QVERIFY(!ControlScene::isKeyboardShown());
}

void TestCMacInput::acceptingTwiceReportsTwice()
{
    m_mac->setMac(someMac);
    for (int i = 0; i < 2; ++i) {
        Operator::tap(m_field);
        key(Qt::Key_Return);
    }
    QCOMPARE(m_reported, (QVector<HMI::MAC>{someMac, someMac}));
}

void TestCMacInput::reportTravelsQueued()
{
    QVector<HMI::MAC> late;
    connect(
        m_mac, &CMacInput::macChangedByEdit, this, [late = &late](HMI::MAC mac) { *late << mac; },
        Qt::QueuedConnection);
    QSignalSpy spy(m_mac, SIGNAL(macChangedByEdit(HMI::MAC)));
    type(QStringLiteral("AABBCCDDEEFF"));
    key(Qt::Key_Return);
    QTRY_COMPARE(late, QVector<HMI::MAC>{typedMac});
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().value<HMI::MAC>(), typedMac);
}

void TestCMacInput::escapeRestores()
{
    m_mac->setMac(someMac);
    type(QStringLiteral("AABB"));
    QCOMPARE(m_mac->macString(), QStringLiteral("AA:BB:2B:3C:4D:5E"));
    key(Qt::Key_Escape);
    QCOMPARE(m_mac->mac(), someMac);
    QVERIFY(!m_field->hasFocus());
    QVERIFY(!ControlScene::isKeyboardShown());
    QVERIFY(m_reported.isEmpty());
}

void TestCMacInput::hideKeyRestores()
{
    m_mac->setMac(someMac);
    type(QStringLiteral("AABB"));
    Operator::settle();
    Operator::tap(m_scene->keyboardKey(QStringLiteral("hide")));
    QCOMPARE(m_mac->mac(), someMac);
    QVERIFY(!m_field->hasFocus());
    QVERIFY(!ControlScene::isKeyboardShown());
    QVERIFY(m_reported.isEmpty());
}

void TestCMacInput::settingMovesWhatEscapeGoesBackTo()
{
    type(QStringLiteral("AABB"));
    m_mac->setMac(someMac);
    type(QStringLiteral("CC"));
    key(Qt::Key_Escape);
    QCOMPARE(m_mac->mac(), someMac);
    QVERIFY(m_reported.isEmpty());
}

void TestCMacInput::halfAnAddressIsNotAccepted()
{
    m_mac->setMac(someMac);
    type(QStringLiteral("AA"));
    key(Qt::Key_End);
    key(Qt::Key_Backspace);
    QVERIFY(!m_field->hasAcceptableInput());
    key(Qt::Key_Return);
    QVERIFY(m_reported.isEmpty());
    QVERIFY(!m_field->hasFocus());
    QCOMPARE(m_mac->mac(), someMac);
    QVERIFY(!ControlScene::isKeyboardShown());
}

void TestCMacInput::halfAnAddressIsNotLeftBehind()
{
    CMacInput *other = CMacInput::create(m_scene->engine(), m_scene->page());
    other->setPosition({20, 90});
    other->setSize({248, 35});
    m_mac->setMac(someMac);
    type(QString());
    key(Qt::Key_End);
    key(Qt::Key_Backspace);
    QVERIFY(!m_field->hasAcceptableInput());
    Operator::tap(other->property("input").value<QQuickItem *>());
    QCOMPARE(m_mac->mac(), someMac);
    QVERIFY(ControlScene::isKeyboardShown());
}

void TestCMacInput::digitsInTheMiddleAreTypedOver()
{
    m_mac->setMac(someMac);
    type(QString());
    key(Qt::Key_Delete);
    QCOMPARE(m_mac->mac(), someMac);
    QTest::keyClick(m_scene->window(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(m_scene->window(), Qt::Key_X, Qt::ControlModifier);
    key(Qt::Key_Return);
    QCOMPARE(m_mac->mac(), someMac);
    QCOMPARE(m_mac->macString().size(), 17);
}

void TestCMacInput::onlyHexDigits()
{
    m_mac->setMac(someMac);
    type(QStringLiteral("gZ!.xAk1"));
    key(Qt::Key_Return);
    QCOMPARE(m_reported.size(), 1);
    QCOMPARE(m_reported.first(), (HMI::MAC{0xa1, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e}));
}

void TestCMacInput::pastedRubbish()
{
    for (const QString &rubbish : {QStringLiteral("zz:zz"), QString(100000, QLatin1Char('g')),
                                   QStringLiteral("::::"), QStringLiteral("\u0661\u0662"), QString()}) {
        m_mac->setMac(someMac);
        QGuiApplication::clipboard()->setText(rubbish);
        type(QString());
        QTest::keyClick(m_scene->window(), Qt::Key_V, Qt::ControlModifier);
        key(Qt::Key_Return);
        QCOMPARE(m_mac->macString().size(), 17);
        QCOMPARE(m_mac->mac(), someMac);
    }
}

void TestCMacInput::leavingByTapReportsNothing()
{
    auto *ip = QSP::CIpInput::create(m_scene->engine(), m_scene->page());
    ip->setPosition({20, 90});
    ip->setSize({248, 35});
    Operator::settle();
    auto *octet = ip->property("ipi1").value<QQuickItem *>();
    type(QStringLiteral("AABBCCDDEEFF"));
    Operator::tap(octet);
    QVERIFY(octet->hasActiveFocus());
    QVERIFY(ControlScene::isKeyboardShown());
    QVERIFY(m_scene->keyboardKey(QStringLiteral("7")));
    QVERIFY2(!m_scene->keyboardKey(QStringLiteral("a")), "the keys follow the field");
    QVERIFY(m_reported.isEmpty());
}

void TestCMacInput::disabledField()
{
    m_mac->setEnabled(false);
    QVERIFY(m_mac->isEnabled());
    QVERIFY(!m_field->isEnabled());
    QCOMPARE(m_field->color(), QColor(180, 180, 180));
    QVERIFY(!Operator::byClass(m_mac, "QQuickRectangle"));
    Operator::tap(m_field);
    QVERIFY(!ControlScene::isKeyboardShown());
    m_mac->setEnabled(true);
    QCOMPARE(m_field->color(), QColor(Qt::black));
    QVERIFY(Operator::byClass(m_mac, "QQuickRectangle"));
}

void TestCMacInput::disabledWhileEditing()
{
    m_mac->setMac(someMac);
    type(QStringLiteral("AABBCCDDEEFF"));
    m_mac->setEnabled(false);
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(m_mac->mac(), someMac);
    HmiSimulator::clearJournal();
    m_mac->setEnabled(true);
    QVERIFY(!m_field->hasActiveFocus());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(ControlScene::beeps(), 0);
    QVERIFY(m_reported.isEmpty());
}

void TestCMacInput::hiddenWhileEditing()
{
    m_mac->setMac(someMac);
    type(QStringLiteral("AABB"));
    m_scene->page()->setVisible(false);
    QVERIFY(!m_field->hasFocus());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(m_mac->mac(), someMac);
    m_scene->page()->setVisible(true);
    QVERIFY(!m_field->hasActiveFocus());
    QVERIFY(m_reported.isEmpty());
}

void TestCMacInput::screenClosedWhileEditing()
{
    m_mac->setMac(someMac);
    type(QStringLiteral("AABB"));
    QVERIFY(ControlScene::isKeyboardShown());
    m_scene->close();
    QVERIFY2(!ControlScene::isKeyboardShown(), "the keyboard stays over the host's page");
    // Keys that were under way reach nothing.
    Operator::type(m_scene->window(), QStringLiteral("CC"));
    key(Qt::Key_Return);
    QVERIFY(m_reported.isEmpty());
    m_scene->open();
    QVERIFY(!m_field->hasActiveFocus());
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(m_mac->mac(), someMac);
}

void TestCMacInput::looks()
{
    m_mac->setFontPixelSize(17);
    QCOMPARE(m_field->font().pixelSize(), 17);
    QCOMPARE(m_field->font().letterSpacing(), 130.0);
    QCOMPARE(m_field->font().letterSpacingType(), QFont::PercentageSpacing);
    auto *frame = qobject_cast<QQuickRectangle *>(Operator::byClass(m_mac, "QQuickRectangle"));
    QCOMPARE(frame->size(), m_mac->size());
    QCOMPARE(frame->border()->color(), QColor(0xE2, 0xE2, 0xE2));
    Operator::tap(m_field);
    QCOMPARE(frame->border()->color(), QColor(0x32, 0x69, 0xCE));
}

void TestCMacInput::withoutItsDocument()
{
    CMacInput bare;
    bare.setMac(someMac);
    bare.setEnabled(false);
    bare.setFontPixelSize(20);
    QCOMPARE(bare.macString(), QString());
    QCOMPARE(bare.mac(), HMI::MAC{});
}

void TestCMacInput::keyStorm()
{
    const QVector<int> codes = {
        Qt::Key_0,         Qt::Key_A,      Qt::Key_F,   Qt::Key_G,      Qt::Key_Colon,
        Qt::Key_Left,      Qt::Key_Home,   Qt::Key_End, Qt::Key_Clear,  Qt::Key_Delete,
        Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape, QSP::VkbManager::hideKey};
    QRandomGenerator random(11);
    for (int i = 0; i < 400; ++i) {
        if (i % 9 == 0)
            Operator::tap(m_field);
        key(codes.at(random.bounded(codes.size())));
    }
    Operator::tap(m_field);
    key(Qt::Key_Escape);
    QVERIFY(!ControlScene::isKeyboardShown());
    QVERIFY2(m_field->hasAcceptableInput(), qPrintable(m_mac->macString()));
    QVERIFY(!m_reported.isEmpty());
}

PANEL_TEST_MAIN(TestCMacInput)

#include "test_cmacinput.moc"
