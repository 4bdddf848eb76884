#include "tests/screen/networkpage.h"

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QGuiApplication>

namespace {

/// What the catalogue says, without its contexts: no text of the screen means two things.
class Catalogue
{
public:
    Catalogue()
    {
        QFile file(QStringLiteral(CATALOGUE_SOURCE));
        if (!file.open(QIODevice::ReadOnly))
            return;
        QXmlStreamReader reader(&file);
        QString source;
        while (!reader.atEnd()) {
            reader.readNext();
            if (!reader.isStartElement())
                continue;
            if (reader.name() == QLatin1String("source"))
                source = reader.readElementText();
            else if (reader.name() == QLatin1String("translation"))
                add(source, reader.readElementText());
        }
    }

    int size() const { return m_chinese.size(); }

    /// Texts below @p glass, seen or not, that are not in the language they should be in.
    QStringList left(QQuickItem *glass, bool chinese) const
    {
        QStringList wrong;
        const auto texts = Operator::items(glass, [](QQuickItem *item) {
            return item->inherits("QQuickText") || item->inherits("QQuickAbstractButton");
        });
        for (const QQuickItem *item : texts) {
            const QString text = item->property("text").toString();
            if (chinese ? m_english.contains(text) : m_chinese.contains(text))
                wrong << text;
        }
        return wrong;
    }

private:
    void add(const QString &source, const QString &translation)
    {
        // "4G" is translated as the name of a page's adapter, but not in the list of default adapters.
        if (translation.isEmpty() || translation == source || source == QLatin1String("4G"))
            return;
        m_english.insert(source);
        m_chinese.insert(translation);
    }

    QSet<QString> m_english;
    QSet<QString> m_chinese;
};

} // namespace

/// A language switch in every state of the screen, with every page built: no text stays behind.
class TestLanguageLive : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void nothingStaysBehind();
    void switchByTheLanguagePage();
};

void TestLanguageLive::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
}

void TestLanguageLive::nothingStaysBehind()
{
    const Catalogue catalogue;
    QVERIFY(catalogue.size() > 50);
    NetworkPage page;
    ScreenFixture &screen = page.screen();
    const auto check = [&](const char *state) {
        for (const bool chinese : {true, false}) {
            page.switchLanguage(chinese ? HMI::SystemSet::CHINESE : HMI::SystemSet::ENGLISH);
            const QStringList left = catalogue.left(screen.glass(), chinese);
            QVERIFY2(left.isEmpty(),
                     qPrintable(QStringLiteral("%1, to %2: %3")
                                    .arg(QLatin1String(state), chinese ? "Chinese" : "English",
                                         left.join(QLatin1String(" | ")))));
        }
    };
    const auto buttonOf = [&](const char *text) {
        return Operator::ancestorOf(Operator::byText(screen.glass(), QLatin1String(text)), "QSP::BeepButton");
    };

    for (const QString &adapter : {QStringLiteral("LAN1"), QStringLiteral("VPN"), QStringLiteral("4G"),
                                   QStringLiteral("LAN0"), QStringLiteral("Wi-Fi")}) {
        page.select(adapter);
        check(qPrintable(adapter));
    }
    QQuickItem *adapters = Operator::byClass(page.defaultAdapter(), "QSP::ComboBox");
    page.tap(adapters);
    check("list of adapters");
    Operator::key(screen.window(), Qt::Key_Escape);
    Operator::settle(20);
    page.tap(buttonOf("Test"));
    HmiSimulator::fireAll();
    Operator::settle(20);
    check("result of the ping test");
    Operator::key(screen.window(), Qt::Key_Escape);
    Operator::settle(20);

    screen.tapMenu(QStringLiteral("Version"));
    check("Version");
    screen.tapMenu(QStringLiteral("Language"));
    check("Language");
    screen.tapMenu(QStringLiteral("General"));
    check("General");
    Operator::tap(Operator::byClass(screen.card("QSP::CardTime"), "QSP::BeepButton"));
    Operator::settle(20);
    check("time editor");
    Operator::key(screen.window(), Qt::Key_Escape);
    Operator::settle(20);
    Operator::tap(screen.window(), {5, 5});
    Operator::settle(20);

    screen.tapMenu(QStringLiteral("Network"));
    page.tap(buttonOf("Wi-Fi Settings"));
    QQuickItem *wifi = screen.card("QSP::CardWifi");
    QVERIFY(wifi);
    check("Wi-Fi");
    Operator::tap(wifi->property("scanButton").value<QQuickItem *>());
    check("scanning");
    HmiSimulator::fireAll();
    Operator::settle(20);
    check("networks");
    Operator::tap(
        Operator::ancestorOf(Operator::byText(wifi, QStringLiteral("Maintenance")), "QSP::WifiRow"));
    Operator::settle(20);
    check("password");
    for (const int report : {4, 3, 0}) {
        HmiSimulator::change([report](HmiSimulator::Panel &panel) { panel.faults.connect = {1, report}; });
        Operator::tap(buttonOf("Connect"));
        HmiSimulator::fireNext("connectWifi");
        Operator::settle(20);
        check("joining");
        HmiSimulator::fireNext("connectWifi");
        Operator::settle(20);
        check("not joined");
    }
}

void TestLanguageLive::switchByTheLanguagePage()
{
    const Catalogue catalogue;
    HmiSimulator::setLanguage(HMI::SystemSet::CHINESE);
    NetworkPage page({1024, 600}, QStringLiteral("网络设置"));
    ScreenFixture &screen = page.screen();
    screen.tapMenu(QStringLiteral("版本信息"));
    screen.tapMenu(QStringLiteral("语言设置"));
    QCOMPARE(catalogue.left(screen.glass(), true), QStringList());
    screen.tapText(QStringLiteral("English"));
    QCOMPARE(catalogue.left(screen.glass(), false), QStringList());
}

PANEL_TEST_MAIN(TestLanguageLive)

#include "test_language_live.moc"
