#include "tests/classes/wifiscene.h"

#include "shell/base/screenroot.h"
#include "shell/base/vkbmanager.h"
#include "tests/support/layoutcheck.h"

#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquicktextinput_p.h>

using QSP::VkbManager;

namespace {

QQuickTextInput *field(const WifiScene &scene)
{
    return qobject_cast<QQuickTextInput *>(scene.input());
}

QRectF onGlass(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(QPointF(), item->size()));
}

QRectF frameOf(const WifiScene &scene)
{
    return onGlass(scene.dialogBody()->parentItem()->parentItem());
}

} // namespace

/// The password dialog: field, masking, keyboard and place.
class TestCardWifiPassword : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void sizes_data();
    void sizes();
    void masksUntilShown();
    void clearedWhenItCloses();
    void keptNowhere();
    void focusShowsTheKeyboard();
    void doneKeysEndTheEditing_data();
    void doneKeysEndTheEditing();
    void buttonsKeepTheKeyboard();
    void clearOfTheKeyboard_data();
    void clearOfTheKeyboard();
    void modalUntilClosed();
    void strangePasswords_data();
    void strangePasswords();
    void strangeTitles();
    void followsTheLanguage();
};

void TestCardWifiPassword::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestCardWifiPassword::sizes_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<QSizeF>("dialog");
    QTest::addColumn<int>("font");
    QTest::newRow("1024x600") << QSize(1024, 600) << QSizeF(426, 243) << 16;
    QTest::newRow("800x480") << QSize(800, 480) << QSizeF(332.8125, 332.8125 * 243 / 426) << 12;
    QTest::newRow("1280x800") << QSize(1280, 800) << QSizeF(532.5, 303.75) << 20;
    QTest::newRow("480x800") << QSize(480, 800) << QSizeF(426, 243) << 16;
    QTest::newRow("600x1024") << QSize(600, 1024) << QSizeF(426, 243) << 16;
}

void TestCardWifiPassword::sizes()
{
    QFETCH(QSize, screen);
    QFETCH(QSizeF, dialog);
    QFETCH(int, font);
    const WifiScene scene(screen);
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    const QRectF frame = frameOf(scene);
    QCOMPARE(frame.width(), dialog.width());
    QCOMPARE(frame.height(), dialog.height());
    QVERIFY(qAbs(frame.center().x() - screen.width() / 2.0) <= 0.51);
    QVERIFY(qAbs(frame.center().y() - screen.height() / 2.0) <= 0.51);
    QCOMPARE(field(scene)->font().pixelSize(), font);
    QCOMPARE(LayoutCheck::faults(scene.dialogBody()), QStringList());
}

void TestCardWifiPassword::masksUntilShown()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QCOMPARE(field(scene)->echoMode(), QQuickTextInput::Password);
    scene.typePassword(QStringLiteral("secret"));
    QCOMPARE(field(scene)->text(), QStringLiteral("secret"));
    QVERIFY(!field(scene)->displayText().contains(QLatin1Char('s')));
    scene.tapInDialog(QStringLiteral("Show Password"));
    QCOMPARE(field(scene)->echoMode(), QQuickTextInput::Normal);
    QCOMPARE(field(scene)->displayText(), QStringLiteral("secret"));
    scene.tapInDialog(QStringLiteral("Show Password"));
    QCOMPARE(field(scene)->echoMode(), QQuickTextInput::Password);
    // Masked again in the next dialog, however this one was left.
    scene.tapInDialog(QStringLiteral("Show Password"));
    scene.closeDialog();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QCOMPARE(field(scene)->echoMode(), QQuickTextInput::Password);
}

void TestCardWifiPassword::clearedWhenItCloses()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("secret"));
    QQuickTextInput *input = field(scene);
    scene.closeDialog();
    QCOMPARE(input->text(), QString());
    QVERIFY(!input->canUndo());
    QVERIFY(!VkbManager::instance().isVisible());

    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QCOMPARE(input->text(), QString());
    scene.typePassword(QStringLiteral("secret"));
    WifiScene::root()->close();
    QTRY_COMPARE(input->text(), QString());
}

void TestCardWifiPassword::keptNowhere()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("open-sesame-7"));
    scene.tapInDialog(QStringLiteral("Connect"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    scene.closeDialog();
    for (const HmiSimulator::Entry &entry : HmiSimulator::journal())
        QVERIFY(entry.text().find("open-sesame") == std::string::npos);
    // No property of any object of the screen tells it.
    QList<QObject *> objects = WifiScene::root()->findChildren<QObject *>();
    const auto items = Operator::items(scene.glass(), [](QQuickItem *) { return true; });
    for (QQuickItem *item : items)
        objects << item;
    for (const QObject *object : qAsConst(objects)) {
        for (int i = 0; i < object->metaObject()->propertyCount(); ++i) {
            const QMetaProperty property = object->metaObject()->property(i);
            if (property.type() == QVariant::String)
                QVERIFY(!property.read(object).toString().contains(QLatin1String("sesame")));
        }
    }
    for (const QSP::CardWifi::WIFI_INFO &info : WifiScene::wifi()->networks())
        QVERIFY(!info.password.contains(QLatin1String("sesame")));
}

void TestCardWifiPassword::focusShowsTheKeyboard()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QVERIFY(!VkbManager::instance().isVisible());
    HmiSimulator::setBuzzerOn(true);
    HmiSimulator::clearJournal();
    Operator::touch(scene.input());
    QVERIFY(scene.input()->hasActiveFocus());
    QVERIFY(VkbManager::instance().isVisible());
    QCOMPARE(Journal::calls(), QStringList(QStringLiteral("beep(true)")));
    // The full keyboard: it has letters.
    QQuickItem *key = scene.keyboardKey(QStringLiteral("q"));
    QVERIFY(key);
    Operator::tap(key);
    QCOMPARE(field(scene)->text(), QStringLiteral("q"));
}

void TestCardWifiPassword::doneKeysEndTheEditing_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("hide") << int(VkbManager::hideKey);
}

void TestCardWifiPassword::doneKeysEndTheEditing()
{
    QFETCH(int, key);
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("abc"));
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(scene.window(), &press);
    QTRY_VERIFY(!scene.input()->hasActiveFocus());
    QVERIFY(!VkbManager::instance().isVisible());
    QVERIFY(scene.dialogBody());
    QCOMPARE(field(scene)->text(), QStringLiteral("abc"));
    QCOMPARE(Journal::calls("connectWifi"), QStringList());
}

void TestCardWifiPassword::buttonsKeepTheKeyboard()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    scene.typePassword(QStringLiteral("abc"));
    scene.tapInDialog(QStringLiteral("Show Password"));
    QVERIFY(scene.input()->hasActiveFocus());
    QVERIFY(VkbManager::instance().isVisible());
    // "Connect" ends the editing by itself.
    QQuickItem *input = scene.input();
    scene.tapInDialog(QStringLiteral("Connect"));
    QTRY_VERIFY(!input->hasActiveFocus());
    QVERIFY(!VkbManager::instance().isVisible());
}

void TestCardWifiPassword::clearOfTheKeyboard_data()
{
    QTest::addColumn<QSize>("screen");
    for (const QSize &size :
         {QSize(1024, 600), QSize(800, 480), QSize(1280, 800), QSize(480, 800), QSize(600, 1024)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestCardWifiPassword::clearOfTheKeyboard()
{
    QFETCH(QSize, screen);
    const WifiScene scene(screen);
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    const qreal middle = frameOf(scene).y();
    const qreal column = QSP::ScreenRoot::cardColumn()->y();
    Operator::tap(scene.input());
    QTRY_COMPARE(frameOf(scene).y(), 25.0);
    QVERIFY(frameOf(scene).bottom() <= screen.height() - VkbManager::instance().getHeight());
    // What lies behind stays where it is.
    QCOMPARE(QSP::ScreenRoot::cardColumn()->y(), column);
    Operator::tap(scene.keyboardKey(QStringLiteral("hide")));
    QTRY_COMPARE(frameOf(scene).y(), middle);
}

void TestCardWifiPassword::modalUntilClosed()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    HmiSimulator::clearJournal();
    // Outside the dialog nothing can be tapped, and nothing closes it.
    for (const QPoint &point :
         {QPoint(100, 300), QPoint(1000, 590), Operator::centerOf(WifiScene::scanButton())})
        Operator::tap(scene.window(), point);
    Operator::key(scene.window(), Qt::Key_Escape);
    Operator::key(scene.window(), Qt::Key_Back);
    QVERIFY(scene.dialogBody());
    QCOMPARE(Journal::callsButBeeps(), QStringList());
    scene.closeDialog();
    QVERIFY(!scene.dialogBody());
}

void TestCardWifiPassword::strangePasswords_data()
{
    QTest::addColumn<QString>("password");
    QTest::newRow("1,000 characters") << QString(1000, QLatin1Char('W'));
    QTest::newRow("1,000 Chinese characters") << QString(1000, QChar(0x88C5));
    QString planes;
    for (uint plane = 0; plane <= 16; ++plane) {
        const uint code = plane * 0x10000 + 0x1234;
        planes += QString::fromUcs4(&code, 1);
    }
    QTest::newRow("every plane") << planes;
    QTest::newRow("markup") << QStringLiteral("<b>&amp;\"'\\</b>");
    QTest::newRow("spaces") << QStringLiteral("  in  and  out  ");
}

void TestCardWifiPassword::strangePasswords()
{
    QFETCH(QString, password);
    // Only the very same bytes open this network.
    HmiSimulator::setNetworks({{"picky", password.toStdString(), 80}});
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("picky")));
    field(scene)->setText(password);
    for (int shown = 0; shown < 2; ++shown) {
        // Cut off at the sides only, or the field could not be touched above and below what is drawn.
        const QQuickItem *view = scene.input()->parentItem();
        QVERIFY(view->clip());
        QCOMPARE(onGlass(view).left(), onGlass(scene.input()).left());
        QCOMPARE(onGlass(view).right(), onGlass(scene.input()).right());
        QVERIFY(onGlass(view->parentItem()).contains(onGlass(scene.input())));
        QVERIFY(!Operator::picture(scene.window()).isNull());
        scene.tapInDialog(QStringLiteral("Show Password"));
    }
    scene.tapInDialog(QStringLiteral("Connect"));
    QVERIFY(WifiScene::report("connectWifi"));
    QVERIFY(WifiScene::report("connectWifi"));
    QCOMPARE(QString::fromStdString(HmiSimulator::panel().wifi.joined), QStringLiteral("picky"));
}

void TestCardWifiPassword::strangeTitles()
{
    HmiSimulator::setNetworks({{"\xD7\xB0\xC5\xE4\xCF\xDF", "x", 80},
                               {std::string(32, 'W'), "x", 80},
                               {"<h1>big</h1>", "x", 80},
                               {"line\nbreak", "x", 80}});
    const WifiScene scene;
    scene.scan();
    const QStringList titles{QStringLiteral("装配线"), QString(32, QLatin1Char('W')),
                             QStringLiteral("<h1>big</h1>"), QStringLiteral("line\uFFFDbreak")};
    for (int i = 0; i < titles.size(); ++i) {
        Operator::tap(WifiScene::wifi()->networks()[i].item);
        QCOMPARE(scene.dialogTexts().value(0), titles[i]);
        QQuickItem *title = Operator::byText(scene.dialogBody()->parentItem(), titles[i]);
        QVERIFY(frameOf(scene).contains(onGlass(title)));
        scene.closeDialog();
    }
}

void TestCardWifiPassword::followsTheLanguage()
{
    const WifiScene scene;
    scene.scan();
    Operator::tap(scene.row(QStringLiteral("Maintenance")));
    QSP::GlobalInfo::switchLanguage(QLocale(QLocale::Chinese, QLocale::China));
    QCOMPARE(scene.dialogTexts(), QStringList({QStringLiteral("Maintenance"), QStringLiteral("输入密码"),
                                               QStringLiteral("显示密码"), QStringLiteral("连接")}));
    QCOMPARE(LayoutCheck::faults(scene.dialogBody()), QStringList());
}

PANEL_TEST_MAIN(TestCardWifiPassword)

#include "test_cardwifi_password.moc"
