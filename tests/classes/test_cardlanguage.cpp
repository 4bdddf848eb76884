#include "cards/about/cardlanguage.h"
#include "shell/base/globalinfo.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

using QSP::CardLanguage;
using QSP::GlobalInfo;

class TestCardLanguage : public PanelTest
{
    Q_OBJECT

private slots:
    void titleRowHeight_data();
    void titleRowHeight();
    void ownsItsModel();
};

void TestCardLanguage::titleRowHeight_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<int>("height");
    QTest::newRow("480x800") << QSize(480, 800) << 43;
    QTest::newRow("599x800") << QSize(599, 800) << 43;
    QTest::newRow("600x1024") << QSize(600, 1024) << 54;
    QTest::newRow("800x480") << QSize(800, 480) << 42;
    QTest::newRow("1024x600") << QSize(1024, 600) << 54;
    QTest::newRow("1280x800") << QSize(1280, 800) << 68;
    QTest::newRow("square") << QSize(800, 800) << 42;
}

void TestCardLanguage::titleRowHeight()
{
    QFETCH(QSize, screen);
    QFETCH(int, height);
    GlobalInfo::instance().setScreenWidth(screen.width());
    GlobalInfo::instance().setScreenHeight(screen.height());
    QCOMPARE(CardLanguage().languageTitleRowHeight(), height);
}

void TestCardLanguage::ownsItsModel()
{
    CardLanguage card;
    QVERIFY(card.languageModel());
    QCOMPARE(card.languageModel()->parent(), &card);
    QCOMPARE(card.property("languageModel").value<QSP::LanguageModel *>(), card.languageModel());
    const QMetaObject *meta = card.metaObject();
    QVERIFY(meta->property(meta->indexOfProperty("languageModel")).isConstant());
    QVERIFY(meta->property(meta->indexOfProperty("languageTitleRowHeight")).isConstant());
}

PANEL_TEST_MAIN(TestCardLanguage)

#include "test_cardlanguage.moc"
