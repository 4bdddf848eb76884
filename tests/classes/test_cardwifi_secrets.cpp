#include "tests/classes/wifiscene.h"

#include "panel/secrets.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquicktextinput_p_p.h>

#include <algorithm>

namespace {

QString secret()
{
    return QStringLiteral("torque55Nm");
}

QQuickTextInputPrivate *field(const WifiScene &scene)
{
    return QQuickTextInputPrivate::get(qobject_cast<QQuickTextInput *>(scene.input()));
}

bool isOverwritten(const QString &text)
{
    return !text.isEmpty() && text.count(QChar(QChar::Null)) == text.size();
}

} // namespace

/// What becomes of a password that was typed.
class TestCardWifiSecrets : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void clipboardGetsNothing_data();
    void clipboardGetsNothing();
    void overwriting();
    void fieldOverwritesWhatWasTyped();
    void fieldThatIsDeleted();
    void shownTextsAreOverwritten();
    void listOverwritesItsPasswords();
};

void TestCardWifiSecrets::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiSecrets::clipboardGetsNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("copy") << int(Qt::Key_C) << int(Qt::ControlModifier);
    QTest::newRow("old copy") << int(Qt::Key_Insert) << int(Qt::ControlModifier);
    QTest::newRow("cut") << int(Qt::Key_X) << int(Qt::ControlModifier);
    QTest::newRow("old cut") << int(Qt::Key_Delete) << int(Qt::ShiftModifier);
    QTest::newRow("delete to the end") << int(Qt::Key_K) << int(Qt::ControlModifier);
    QTest::newRow("delete the line") << int(Qt::Key_U) << int(Qt::ControlModifier);
}

void TestCardWifiSecrets::clipboardGetsNothing()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.tapInDialog(QStringLiteral("Show Password"));
    scene.typePassword(secret());
    QCOMPARE(scene.input()->property("displayText").toString(), secret());
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    QTest::keyClick(scene.window(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(scene.window(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
}

// Whoever shares a text shares its memory: what is held here is what would be left behind.

void TestCardWifiSecrets::overwriting()
{
    QString text(secret());
    text.detach();
    const QString shared = text;
    QSP::overwrite(text);
    QVERIFY(isOverwritten(text));
    QVERIFY(isOverwritten(shared));
    QCOMPARE(text.size(), secret().size());
    QByteArray bytes = secret().toUtf8();
    QSP::overwrite(bytes);
    QCOMPARE(bytes, QByteArray(secret().size(), '\0'));
    std::string string = secret().toStdString();
    QSP::overwrite(string);
    QCOMPARE(string, std::string(static_cast<std::size_t>(secret().size()), '\0'));
    QString nothing;
    QSP::overwrite(nothing);
    QString constant = secret();
    QSP::overwrite(constant);
    QCOMPARE(constant, secret());
}

void TestCardWifiSecrets::fieldOverwritesWhatWasTyped()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("t"));
    const QChar *place = field(scene)->m_text.constData();
    Operator::type(scene.window(), secret().mid(1));
    QCOMPARE(field(scene)->m_text, secret());
    // Nothing was left behind by growing.
    QCOMPARE(field(scene)->m_text.constData(), place);
    const QString held = field(scene)->m_text;
    scene.closeDialog();
    QVERIFY(isOverwritten(held));
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QCOMPARE(field(scene)->m_text, QString());
    scene.typePassword(secret());
    QCOMPARE(field(scene)->m_text, secret());
}

void TestCardWifiSecrets::fieldThatIsDeleted()
{
    QString held;
    QString shown;
    {
        const WifiScene scene;
        scene.scan();
        Operator::tap(scene.row(QStringLiteral("Maintenance")));
        scene.tapInDialog(QStringLiteral("Show Password"));
        scene.typePassword(secret());
        held = field(scene)->m_text;
        shown = field(scene)->m_textLayout.text();
        QCOMPARE(shown, secret());
    }
    QVERIFY(isOverwritten(held));
    QVERIFY(isOverwritten(shown));
}

void TestCardWifiSecrets::shownTextsAreOverwritten()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.tapInDialog(QStringLiteral("Show Password"));
    Operator::tap(scene.input());
    const QString password = secret();
    QStringList shown;
    for (const QChar character : password) {
        Operator::type(scene.window(), QString(character));
        shown.append(field(scene)->m_textLayout.text());
    }
    QCOMPARE(shown.takeLast(), secret());
    for (const QString &text : qAsConst(shown))
        QVERIFY(isOverwritten(text));
    const QString last = field(scene)->m_textLayout.text();
    scene.tapInDialog(QStringLiteral("Show Password"));
    QVERIFY(isOverwritten(last));
    QCOMPARE(field(scene)->m_text, secret());
}

void TestCardWifiSecrets::listOverwritesItsPasswords()
{
    const WifiScene scene;
    scene.scan();
    const auto typed = [&scene] {
        const auto &networks = WifiScene::wifi()->networks();
        const QQuickItem *row = scene.row(QStringLiteral("Maintenance"));
        return std::find_if(networks.begin(), networks.end(),
                            [row](const auto &info) { return info.item == row; })
            ->password;
    };
    WifiScene::scriptReports({4});
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(secret());
    scene.tapInDialog(QStringLiteral("Connect"));
    const QString refused = typed();
    QCOMPARE(refused, secret());
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(isOverwritten(refused));
    // The field still has it, for another try.
    QCOMPARE(field(scene)->m_text, secret());
    WifiScene::scriptReports({3});
    scene.tapInDialog(QStringLiteral("Connect"));
    QVERIFY(WifiScene::report("connectWifi"));
    const QString unanswered = typed();
    QCOMPARE(unanswered, secret());
    scene.closeDialog();
    QCOMPARE(unanswered, secret());
    scene.scan();
    QVERIFY(isOverwritten(unanswered));
}

PANEL_TEST_MAIN(TestCardWifiSecrets)

#include "test_cardwifi_secrets.moc"
