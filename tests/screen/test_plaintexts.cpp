#include "simulator/simulator.h"
#include "tests/screen/screenfixture.h"

#include <QtCore/QSet>
#include <QtCore/QTranslator>

namespace {

const char *const outerNames[] = {"<b>x</b>", R"(<img src="http://127.0.0.1:9/">)", "&amp;&lt;b&gt;", "<s>a"};
const char *const serialNumber = R"(<i>7</i>&amp;<img src="http://127.0.0.1:9/">)";

QString marked(const char *source)
{
    return QStringLiteral("<b>%1</b>&amp;").arg(QString::fromUtf8(source));
}

bool looksLikeMarkup(const QString &text)
{
    return text.contains(QLatin1Char('<')) || text.contains(QLatin1Char('&'));
}

/// A catalogue whose every text is markup, as one that a host brings may be.
class MarkupTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        // What it says of how a language is written is no text, and formats of numbers are the toolkit's.
        if (qstrcmp(context, "QGuiApplication") == 0)
            return {};
        return marked(source);
    }
};

} // namespace

/// Whatever comes from outside, the names of networks, the serial number and the texts of catalogues, is shown
/// letter by letter: nothing in it is a tag, a picture to be fetched or a character in other words.
class TestPlainTexts : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void everyPlace_data();
    void everyPlace();

private:
    /// Looks at every text below the window, shown or not, and remembers those that look like markup.
    void look(const ScreenFixture &screen);
    void tapMenu(ScreenFixture &screen, const char *page);
    /// Taps what carries this text, and looks at what is there then.
    void tapText(ScreenFixture &screen, const char *text);
    void lookAtNetworks(ScreenFixture &screen);
    void lookAtLists(const ScreenFixture &screen);

    MarkupTranslator m_translator;
    QSet<QString> m_seen;
};

void TestPlainTexts::initTestCase()
{
    QCoreApplication::installTranslator(&m_translator);
}

void TestPlainTexts::init()
{
    beginWatch();
    m_seen.clear();
    HmiSimulator::reset();
    HmiSimulator::setManual(false);
    HmiSimulator::setDelays(0);
    HmiSimulator::setSerialNumber(serialNumber);
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.wifi = {};
        for (const char *name : outerNames) {
            HmiSimulator::Network network;
            network.name = name;
            network.password = "12345678";
            network.signal = 80;
            panel.wifi.networks.push_back(network);
        }
        panel.wifi.connected = true;
        panel.wifi.joined = outerNames[0];
        panel.wifi.networks.front().stored = "12345678";
    });
}

void TestPlainTexts::look(const ScreenFixture &screen)
{
    const auto texts =
        Operator::items(screen.glass(), [](const QQuickItem *item) { return item->inherits("QQuickText"); });
    for (const QQuickItem *item : texts) {
        const QString text = item->property("text").toString();
        // The caps of the keyboard's keys are nobody else's.
        if (!looksLikeMarkup(text) || text.size() < 3)
            continue;
        m_seen << text;
        QVERIFY2(item->property("textFormat").toInt() == int(Qt::PlainText), qPrintable(text));
    }
}

void TestPlainTexts::tapMenu(ScreenFixture &screen, const char *page)
{
    screen.tapMenu(marked(page));
    look(screen);
}

void TestPlainTexts::tapText(ScreenFixture &screen, const char *text)
{
    screen.tapText(marked(text));
    HmiSimulator::waitIdle();
    Operator::settle();
    look(screen);
}

void TestPlainTexts::lookAtLists(const ScreenFixture &screen)
{
    const auto boxes = Operator::allByClass(screen.root(), "QQuickComboBox");
    for (QQuickItem *box : boxes) {
        // By its signal, for some are off, or below the glass.
        auto *list = box->property("popup").value<QObject *>();
        QMetaObject::invokeMethod(list, "open");
        Operator::settle();
        look(screen);
        QMetaObject::invokeMethod(list, "close");
        Operator::settle();
    }
}

void TestPlainTexts::lookAtNetworks(ScreenFixture &screen)
{
    Operator::tap(Operator::byClass(screen.root(), "QSP::WifiTile"));
    Operator::settle();
    QQuickItem *page = screen.card("QSP::CardWifi");
    QVERIFY(page);
    Operator::tap(page->property("scanButton").value<QQuickItem *>());
    HmiSimulator::waitIdle();
    Operator::settle();
    look(screen);
    // The dialog for the password of one has its name in the title, and says how it went.
    QQuickItem *label =
        Operator::byText(page->property("list").value<QQuickItem *>(), QString::fromUtf8(outerNames[1]));
    Operator::tap(Operator::ancestorOf(label, "QSP::WifiRow"));
    Operator::settle();
    look(screen);
    QVERIFY(Operator::byClass(screen.glass(), "QSP::WifiPasswordBody"));
    screen.close();
    screen.open();
}

void TestPlainTexts::everyPlace_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(1024, 600);
    QTest::newRow("narrow") << QSize(600, 1024);
}

void TestPlainTexts::everyPlace()
{
    QFETCH(const QSize, size);
    ScreenFixture screen(QStringLiteral(PANEL_PLUGIN), size, {{QStringLiteral("panelConfirmReboot"), true}});
    screen.open();
    look(screen);
    for (const char *page : {"General", "Version", "Language", "Network"}) {
        tapMenu(screen, page);
        if (QTest::currentTestFailed())
            return;
        if (page != QLatin1String("Network")) {
            screen.close();
            screen.open();
        }
    }
    for (const char *adapter : {"LAN0", "4G", "VPN", "Wi-Fi"}) {
        tapText(screen, adapter);
        lookAtLists(screen);
    }
    lookAtNetworks(screen);
    QVERIFY(!QTest::currentTestFailed());
    QStringList expected = {QString::fromUtf8(serialNumber),
                            marked("Serial Number"),
                            marked("Default Adapter"),
                            marked("LAN1"),
                            marked("Europe"),
                            marked("Nearby Wi-Fi"),
                            marked("Network"),
                            marked("Wi-Fi Settings"),
                            marked("Brightness")};
    for (const char *name : outerNames)
        expected << QString::fromUtf8(name);
    const QStringList seen(m_seen.cbegin(), m_seen.cend());
    for (const QString &text : qAsConst(expected))
        QVERIFY2(seen.contains(text),
                 qPrintable(text + QStringLiteral(" was not seen in ") + seen.join(QLatin1Char('\n'))));
}

PANEL_TEST_MAIN(TestPlainTexts)

#include "test_plaintexts.moc"
