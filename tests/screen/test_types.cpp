#include "tests/screen/screenfixture.h"

#include <QtCore/QResource>
#include <QtGui/QGuiApplication>
#include <QtQml/private/qhashedstring_p.h>
#include <QtQml/private/qqmlmetatype_p.h>

namespace {

QStringList registeredTypes(const char *module = "QQuickSystemSet")
{
    QStringList names;
    const auto types = QQmlMetaType::qmlTypes();
    for (const QQmlType &type : types) {
        if (type.module() == QLatin1String(module))
            names << type.elementName();
    }
    names.sort();
    return names;
}

} // namespace

/// Each type of the module is registered by the first page that needs it, once.
class TestTypes : public PanelTest
{
    Q_OBJECT

private slots:
    void registersLazily();
};

void TestTypes::registersLazily()
{
    QVERIFY(QResource(QStringLiteral(":/setting/main.qml")).size() == 0);
    QCOMPARE(registeredTypes(), QStringList());

    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), {480, 800});
    QVERIFY(QResource(QStringLiteral(":/setting/main.qml")).isValid());
    QVERIFY(QResource(QStringLiteral(":/setting/translations/settings.qm")).isValid());
    QStringList expected{QStringLiteral("AppRootItem"), QStringLiteral("BeepButton")};
    QCOMPARE(registeredTypes(), expected);

    // What the first page needs of the toolkit's controls, without importing their module, the colours and
    // the icons.
    constexpr char toolkit[] = "QQuickSystemSet.Toolkit";
    QCOMPARE(registeredTypes(toolkit),
             (QStringList{QStringLiteral("Icon"), QStringLiteral("Palette"), QStringLiteral("ScrollBar")}));

    // A page brings exactly its own types; a second showing brings none.
    const QVector<QPair<QString, QStringList>> pages{
        {QStringLiteral("General"),
         {QStringLiteral("BeepSwitch"), QStringLiteral("BrightButton"), QStringLiteral("CardBrightness"),
          QStringLiteral("CardBuzzer"), QStringLiteral("CardTime")}},
        {QStringLiteral("Version"), {QStringLiteral("CardVersion")}},
        {QStringLiteral("Language"), {QStringLiteral("CardLanguage"), QStringLiteral("LanguageModel")}},
        {QStringLiteral("Network"),
         {QStringLiteral("CIpInput"), QStringLiteral("CMacInput"), QStringLiteral("CardDNS"),
          QStringLiteral("CardNIC"), QStringLiteral("CardNetwork"), QStringLiteral("ComboBox"),
          QStringLiteral("Dialog")}},
    };
    fixture.open();
    for (const auto &page : pages) {
        for (int visit = 0; visit < 2; ++visit) {
            fixture.tapMenu(page.first);
            if (visit == 0)
                expected << page.second;
            expected.sort();
            QCOMPARE(registeredTypes(), expected);
            if (page.first == QLatin1String("General"))
                QCOMPARE(registeredTypes("QtQuick.Templates"), QStringList());
            auto *titleBar = fixture.root()->property("titleBar").value<QQuickItem *>();
            Operator::tap(Operator::byClass(titleBar, "QSP::BeepButton"));
        }
    }

    QCOMPARE(registeredTypes(toolkit),
             (QStringList{QStringLiteral("Icon"), QStringLiteral("Palette"), QStringLiteral("ScrollBar"),
                          QStringLiteral("StepSlider")}));

    fixture.tapMenu(QStringLiteral("Network"));
    fixture.tapText(QStringLiteral("Wi-Fi"));
    QCOMPARE(registeredTypes(), expected);
    Operator::tap(Operator::byText(fixture.glass(), QStringLiteral("Wi-Fi Settings")));
    Operator::settle();
    QCOMPARE(fixture.title(), QStringLiteral("Wi-Fi"));
    expected << QStringLiteral("CardWifi");
    expected.sort();
    QCOMPARE(registeredTypes(), expected);
}

PANEL_TEST_MAIN(TestTypes)

#include "test_types.moc"
