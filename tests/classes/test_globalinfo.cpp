#include "shell/base/globalinfo.h"
#include "tests/support/journal.h"
#include "tests/support/locales.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtGui/qpa/qplatformscreen.h>
#include <QtGui/qpa/qwindowsysteminterface.h>
#include <QtGui/QScreen>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

using QSP::GlobalInfo;

namespace {

QString translatedGeneral()
{
    return QCoreApplication::translate("QSP::AppRootItem", "General");
}

// A screen of any physical size, in millimetres.
class Glass : public QPlatformScreen
{
public:
    explicit Glass(QSizeF millimetres) : m_millimetres(millimetres) {}
    QRect geometry() const override { return {0, 0, 1024, 600}; }
    int depth() const override { return 32; }
    QImage::Format format() const override { return QImage::Format_RGB32; }
    QSizeF physicalSize() const override { return m_millimetres; }

private:
    QSizeF m_millimetres;
};

} // namespace

class TestGlobalInfo : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void startsInEnglishAndSaysSo();
    void sameLocaleDoesNothing();
    void chineseAndBack();
    void everyOtherLanguageIsEnglishToTheService();
    void aLanguageWithACatalogueOfItsOwn();
    void followsTheLanguageChosenElsewhere_data();
    void followsTheLanguageChosenElsewhere();
    void aThirdLanguageStays();
    void translationPrecedesOtherReceivers();
    void oneTranslatorForAllSwitches();
    void sizes_data();
    void sizes();
    void nativeOrientation_data();
    void nativeOrientation();
    void nativeOrientationIsMeasuredOnce();
    void engineIsForgottenWhenItDies();
    void hostName_data();
    void hostName();
};

void TestGlobalInfo::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestGlobalInfo::startsInEnglishAndSaysSo()
{
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    HmiSimulator::setGettersRecorded(true);
    const GlobalInfo info;
    QCOMPARE(info.locale(), Locales::english());
    QCOMPARE(Journal::calls(), QStringList{QStringLiteral("setLanguage(ENGLISH)")});
    QCOMPARE(info.rootPopupZ(), 20000);
    QCOMPARE(info.screenSize(), QSize(-1, -1));
    QVERIFY(!info.qmlEngine());
}

void TestGlobalInfo::sameLocaleDoesNothing()
{
    GlobalInfo info;
    HmiSimulator::clearJournal();
    QSignalSpy changed(&info, &GlobalInfo::localeChanged);
    info.setLocale(Locales::english());
    QCOMPARE(changed.size(), 0);
    QCOMPARE(Journal::calls(), QStringList());
}

void TestGlobalInfo::chineseAndBack()
{
    GlobalInfo info;
    HmiSimulator::clearJournal();
    QSignalSpy changed(&info, &GlobalInfo::localeChanged);
    info.setLocale(Locales::chinese());
    QCOMPARE(translatedGeneral(), QStringLiteral("通用设置"));
    // Empty on purpose in the catalogue: the source is shown.
    QCOMPARE(QCoreApplication::translate("CardDNS", "DNS 1"), QStringLiteral("DNS 1"));
    info.setLocale(Locales::english());
    QCOMPARE(translatedGeneral(), QStringLiteral("General"));
    QCOMPARE(changed.size(), 2);
    QCOMPARE(Journal::calls(),
             QStringList({QStringLiteral("setLanguage(CHINESE)"), QStringLiteral("setLanguage(ENGLISH)")}));
}

void TestGlobalInfo::everyOtherLanguageIsEnglishToTheService()
{
    GlobalInfo info;
    HmiSimulator::clearJournal();
    info.setLocale(QLocale(QLocale::Volapuk));
    QCOMPARE(Journal::calls(), QStringList{QStringLiteral("setLanguage(ENGLISH)")});
    QCOMPARE(translatedGeneral(), QStringLiteral("通用设置"));
    info.setLocale(Locales::english());
}

void TestGlobalInfo::aLanguageWithACatalogueOfItsOwn()
{
    GlobalInfo &info = GlobalInfo::instance();
    info.setLocale(QLocale(QLocale::Esperanto));
    QCOMPARE(translatedGeneral(), QStringLiteral("Ĝenerala"));
    info.setLocale(Locales::chinese());
    QCOMPARE(translatedGeneral(), QStringLiteral("通用设置"));
    info.setLocale(QLocale(QLocale::Esperanto));
    QCOMPARE(translatedGeneral(), QStringLiteral("Ĝenerala"));
    info.setLocale(Locales::english());
    QCOMPARE(translatedGeneral(), QStringLiteral("General"));
}

void TestGlobalInfo::followsTheLanguageChosenElsewhere_data()
{
    QTest::addColumn<int>("told");
    QTest::addColumn<QLocale>("before");
    QTest::addColumn<QLocale>("after");
    QTest::newRow("Chinese") << 0 << Locales::english() << Locales::chinese();
    QTest::newRow("English") << 1 << Locales::chinese() << Locales::english();
    QTest::newRow("unknown is English") << 7 << Locales::chinese() << Locales::english();
    QTest::newRow("negative is English") << -1 << Locales::chinese() << Locales::english();
    QTest::newRow("same language") << 1 << Locales::english() << Locales::english();
}

void TestGlobalInfo::followsTheLanguageChosenElsewhere()
{
    QFETCH(int, told);
    QFETCH(QLocale, before);
    QFETCH(QLocale, after);
    GlobalInfo info;
    info.setLocale(before);
    HmiSimulator::setLanguage(told);
    HmiSimulator::clearJournal();
    QSignalSpy changed(&info, &GlobalInfo::localeChanged);
    info.checkExternalLanguageChange();
    QCOMPARE(info.locale(), after);
    QCOMPARE(changed.size(), before == after ? 0 : 1);
    QCOMPARE(Journal::calls(), QStringList());
    info.setLocale(Locales::english());
}

// The service knows Chinese and English alone, and was told English.
void TestGlobalInfo::aThirdLanguageStays()
{
    GlobalInfo &info = GlobalInfo::instance();
    info.setLocale(QLocale(QLocale::Esperanto));
    info.checkExternalLanguageChange();
    QCOMPARE(info.locale().language(), QLocale::Esperanto);
    HmiSimulator::setLanguage(0);
    info.checkExternalLanguageChange();
    QCOMPARE(info.locale(), Locales::chinese());
    info.setLocale(Locales::english());
}

void TestGlobalInfo::translationPrecedesOtherReceivers()
{
    GlobalInfo info;
    QString seen;
    connect(&info, &GlobalInfo::localeChanged, this, [&seen] { seen = translatedGeneral(); });
    info.setLocale(Locales::chinese());
    QCOMPARE(seen, QStringLiteral("通用设置"));
    info.setLocale(Locales::english());
    QCOMPARE(seen, QStringLiteral("General"));
}

void TestGlobalInfo::oneTranslatorForAllSwitches()
{
    GlobalInfo info;
    info.setLocale(Locales::chinese());
    const int translators = QCoreApplication::instance()->findChildren<QTranslator *>().size();
    for (int i = 0; i < 100; ++i) {
        info.setLocale(Locales::english());
        info.setLocale(Locales::chinese());
    }
    QCOMPARE(QCoreApplication::instance()->findChildren<QTranslator *>().size(), translators);
    info.setLocale(Locales::english());
    QCOMPARE(translatedGeneral(), QStringLiteral("General"));
}

void TestGlobalInfo::sizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("portrait");
    QTest::addColumn<bool>("menuFill");
    QTest::newRow("799x480") << QSize(799, 480) << false << true;
    QTest::newRow("800x480") << QSize(800, 480) << false << false;
    QTest::newRow("480x800") << QSize(480, 800) << true << true;
    QTest::newRow("600x600") << QSize(600, 600) << false << true;
    QTest::newRow("800x1280") << QSize(800, 1280) << true << false;
}

void TestGlobalInfo::sizes()
{
    QFETCH(QSize, size);
    GlobalInfo info;
    info.setScreenWidth(size.width());
    info.setScreenHeight(size.height());
    QCOMPARE(info.screenSize(), size);
    QTEST(info.isScreenPortrait(), "portrait");
    QTEST(info.isMenuFill(), "menuFill");
    QCOMPARE(info.isNativePortrait(), size.height() > size.width());
}

void TestGlobalInfo::nativeOrientation_data()
{
    QTest::addColumn<QSizeF>("millimetres");
    QTest::addColumn<bool>("portrait");
    QTest::newRow("landscape") << QSizeF(154.6, 85.2) << false;
    QTest::newRow("portrait") << QSizeF(85.2, 154.6) << true;
    QTest::newRow("square") << QSizeF(85.4, 85.4) << false;
    QTest::newRow("equal after rounding") << QSizeF(84.6, 85.4) << false;
    QTest::newRow("one more after rounding") << QSizeF(84.4, 84.6) << true;
}

void TestGlobalInfo::nativeOrientation()
{
    QFETCH(QSizeF, millimetres);
    auto *glass = new Glass(millimetres);
    QWindowSystemInterface::handleScreenAdded(glass);
    {
        QQuickWindow window;
        window.setScreen(glass->screen());
        GlobalInfo info;
        info.setScreenWidth(1024);
        info.setScreenHeight(600);
        info.initializeNativeOrientation(nullptr);
        QVERIFY(!info.isNativePortrait());
        info.initializeNativeOrientation(&window);
        QTEST(info.isNativePortrait(), "portrait");
    }
    QWindowSystemInterface::handleScreenRemoved(glass);
}

void TestGlobalInfo::nativeOrientationIsMeasuredOnce()
{
    auto *upright = new Glass({80, 150});
    auto *lying = new Glass({150, 80});
    QWindowSystemInterface::handleScreenAdded(upright);
    QWindowSystemInterface::handleScreenAdded(lying);
    {
        QQuickWindow window;
        window.setScreen(upright->screen());
        GlobalInfo info;
        info.initializeNativeOrientation(&window);
        window.setScreen(lying->screen());
        info.initializeNativeOrientation(&window);
        QVERIFY(info.isNativePortrait());
    }
    QWindowSystemInterface::handleScreenRemoved(lying);
    QWindowSystemInterface::handleScreenRemoved(upright);
}

void TestGlobalInfo::engineIsForgottenWhenItDies()
{
    GlobalInfo info;
    {
        QQmlEngine engine;
        info.setQmlEngine(&engine);
        QCOMPARE(info.qmlEngine(), &engine);
    }
    QVERIFY(!info.qmlEngine());
}

void TestGlobalInfo::hostName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("vistor");
    QTest::newRow("vistor") << QStringLiteral("vistor") << true;
    QTest::newRow("case") << QStringLiteral("Vistor") << false;
    QTest::newRow("longer") << QStringLiteral("vistor2") << false;
    QTest::newRow("empty") << QString() << false;
}

void TestGlobalInfo::hostName()
{
    QFETCH(QString, name);
    const QString before = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName(name);
    const GlobalInfo info;
    QCoreApplication::setApplicationName(before);
    QTEST(info.isStartedFromVistor(), "vistor");
}

PANEL_TEST_MAIN(TestGlobalInfo)

#include "test_globalinfo.moc"
