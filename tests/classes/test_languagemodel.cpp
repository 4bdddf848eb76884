#include "cards/about/languagemodel.h"
#include "shell/base/globalinfo.h"
#include "simulator/simulator.h"
#include "tests/support/locales.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QAbstractItemModelTester>

using QSP::GlobalInfo;
using QSP::LanguageModel;

class TestLanguageModel : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void keepsTheRulesOfModels();
    void rolesHaveTheirValuesAndNames();
    void dataOfTheRow();
    void dataElsewhereIsEmpty_data();
    void dataElsewhereIsEmpty();
    void rowsHaveNoChildren();
    void switchesTheLanguage();
    void ignoresRowsThatDoNotExist();
    void tellsOfEverySwitch();
    void listsWhatItIsGiven();
    void sameLanguagesAreNoNews();
};

void TestLanguageModel::init()
{
    beginWatch();
    GlobalInfo::switchLanguage(Locales::english());
    HmiSimulator::reset();
}

void TestLanguageModel::keepsTheRulesOfModels()
{
    LanguageModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    GlobalInfo::switchLanguage(Locales::chinese());
    model.setCurrentLanguage(0);
    QCOMPARE(model.rowCount(), 1);
}

void TestLanguageModel::rolesHaveTheirValuesAndNames()
{
    const QHash<int, QByteArray> names = LanguageModel().roleNames();
    QCOMPARE(names.size(), 3);
    QCOMPARE(names.value(257), QByteArrayLiteral("text"));
    QCOMPARE(names.value(258), QByteArrayLiteral("langCode"));
    QCOMPARE(names.value(259), QByteArrayLiteral("isCurrent"));
}

void TestLanguageModel::dataOfTheRow()
{
    const LanguageModel model;
    QCOMPARE(model.data(model.index(0), 257), QVariant(QStringLiteral("English")));
    QCOMPARE(model.data(model.index(0), 258), QVariant(31));
    QCOMPARE(model.data(model.index(0), 259), QVariant(true));
    GlobalInfo::switchLanguage(Locales::chinese());
    QCOMPARE(model.data(model.index(0), 257), QVariant(QStringLiteral("English")));
    QCOMPARE(model.data(model.index(0), 258), QVariant(31));
    QCOMPARE(model.data(model.index(0), 259), QVariant(false));
}

void TestLanguageModel::dataElsewhereIsEmpty_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("role");
    QTest::newRow("row before") << -1 << 257;
    QTest::newRow("row after") << 1 << 257;
    QTest::newRow("display role") << 0 << int(Qt::DisplayRole);
    QTest::newRow("role before") << 0 << 256;
    QTest::newRow("role after") << 0 << 260;
}

void TestLanguageModel::dataElsewhereIsEmpty()
{
    QFETCH(int, row);
    QFETCH(int, role);

    // Makes indices that the model itself would never hand out.
    struct AnyIndex : LanguageModel {
        QModelIndex at(int row) const { return createIndex(row, 0); }
    };
    const AnyIndex model;
    QVERIFY(!model.data(model.at(row), role).isValid());
}

void TestLanguageModel::rowsHaveNoChildren()
{
    const LanguageModel model;
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.rowCount(model.index(0)), 0);
}

void TestLanguageModel::switchesTheLanguage()
{
    GlobalInfo::switchLanguage(Locales::chinese());
    LanguageModel model;
    QCOMPARE(model.getCurrentSystemLanguage(), QLocale::Chinese);
    HmiSimulator::clearJournal();
    model.setCurrentLanguage(0);
    QCOMPARE(model.getCurrentSystemLanguage(), QLocale::English);
    QCOMPARE(GlobalInfo::instance().locale().language(), QLocale::English);
    QCOMPARE(HmiSimulator::panel().language, int(HMI::SystemSet::ENGLISH));
    QCOMPARE(int(HmiSimulator::calls("setLanguage").size()), 1);
}

void TestLanguageModel::ignoresRowsThatDoNotExist()
{
    GlobalInfo::switchLanguage(Locales::chinese());
    LanguageModel model;
    HmiSimulator::clearJournal();
    for (const int row : {-1, model.rowCount(), 1000000})
        model.setCurrentLanguage(row);
    QCOMPARE(model.getCurrentSystemLanguage(), QLocale::Chinese);
    QVERIFY(HmiSimulator::calls().empty());
}

void TestLanguageModel::tellsOfEverySwitch()
{
    LanguageModel model;
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    GlobalInfo::switchLanguage(Locales::chinese());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed[0][0].toModelIndex().row(), 0);
    QCOMPARE(changed[0][1].toModelIndex().row(), model.rowCount() - 1);
    QVERIFY(changed[0][2].value<QVector<int>>().isEmpty());

    // As when the language was chosen elsewhere on the panel.
    HmiSimulator::setLanguage(HMI::SystemSet::ENGLISH);
    GlobalInfo::instance().checkExternalLanguageChange();
    QCOMPARE(changed.size(), 2);
}

void TestLanguageModel::listsWhatItIsGiven()
{
    LanguageModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    model.setLanguages({QLocale::German, QLocale::Chinese, QLocale::English});
    QCOMPARE(reset.size(), 1);
    QCOMPARE(model.rowCount(), 3);
    // Each in itself, without a country or a script.
    const QStringList names{QStringLiteral("Deutsch"), QStringLiteral("简体中文"), QStringLiteral("English")};
    const QVector<QLocale::Language> languages{QLocale::German, QLocale::Chinese, QLocale::English};
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(model.data(model.index(row), LanguageModel::TextRole).toString(), names.at(row));
        QCOMPARE(model.data(model.index(row), LanguageModel::LangCodeRole).toInt(), int(languages.at(row)));
        QCOMPARE(model.data(model.index(row), LanguageModel::IsCurrentRole).toBool(), row == 2);
    }
    model.setCurrentLanguage(1);
    QCOMPARE(model.getCurrentSystemLanguage(), QLocale::Chinese);
    QVERIFY(model.data(model.index(1), LanguageModel::IsCurrentRole).toBool());
}

void TestLanguageModel::sameLanguagesAreNoNews()
{
    LanguageModel model;
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    model.setLanguages({QLocale::English});
    QCOMPARE(reset.size(), 0);
    model.setLanguages({QLocale::English, QLocale::Chinese});
    model.setLanguages({QLocale::English, QLocale::Chinese});
    QCOMPARE(reset.size(), 1);
}

PANEL_TEST_MAIN(TestLanguageModel)

#include "test_languagemodel.moc"
