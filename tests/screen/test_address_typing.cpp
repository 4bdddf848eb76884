#include "tests/screen/networkpage.h"

/// An address typed on the on-screen keyboard, as on the panel: with one finger, at the sizes that panels have.
class TestAddressTyping : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void oneTapAndTheKeys_data();
    void oneTapAndTheKeys();
    void takenBack_data() { sizes(); }
    void takenBack();

private:
    static void sizes();
    static void strike(const NetworkPage &page, const QString &name);
};

void TestAddressTyping::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(NetworkPage::allAdapters);
    HmiSimulator::setManual(true);
    HmiSimulator::setBuzzerOn(true);
}

void TestAddressTyping::sizes()
{
    QTest::addColumn<QSize>("size");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes)
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TestAddressTyping::oneTapAndTheKeys_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("call");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes) {
        const auto row = [size](const char *field, const char *call) {
            QTest::newRow(qPrintable(QString("%1, %2x%3").arg(field).arg(size.width()).arg(size.height())))
                << size << QString(field) << QString(call);
        };
        row("IP Address", "setIp(LAN0, 10.0.201.5, persist)");
        row("Default Gateway", "setGateway(LAN0, 10.0.201.5, persist)");
        row("DNS 2", "setDns(LAN0, 192.168.1.1, 10.0.201.5)");
    }
}

void TestAddressTyping::strike(const NetworkPage &page, const QString &name)
{
    Operator::touch(Operator::byName(page.glass(), QLatin1String("vkbKey_") + name));
}

void TestAddressTyping::oneTapAndTheKeys()
{
    QFETCH(QSize, size);
    QFETCH(QString, field);
    QFETCH(QString, call);
    NetworkPage page(size);
    QQuickItem *input =
        field.startsWith("DNS") ? page.dnsInput(field.rightRef(1).toInt()) : page.addressOf(field);
    QQuickItem *first = NetworkPage::octet(input, 0);
    page.reveal(first);
    HmiSimulator::clearJournal();
    Operator::touch(first);
    Operator::settle();
    const QString keys = QStringLiteral("10.0.2015");
    for (const QChar key : keys)
        strike(page, key);
    QCOMPARE(Journal::calls(), QStringList("beep(true)"));
    strike(page, "enter");
    QCOMPARE(Journal::calls(), QStringList({"beep(true)", call}));
    QCOMPARE(input->property("ip").toString(), QString("10.0.201.5"));
}

void TestAddressTyping::takenBack()
{
    QFETCH(QSize, size);
    NetworkPage page(size);
    QQuickItem *input = page.addressOf("Subnet Mask");
    QQuickItem *first = NetworkPage::octet(input, 0);
    page.reveal(first);
    HmiSimulator::clearJournal();
    Operator::touch(first);
    Operator::settle();
    const QString keys = QStringLiteral("255.255.0.0");
    for (const QChar key : keys)
        strike(page, key);
    strike(page, "hide");
    QStringList shown;
    for (int i = 0; i < 4; ++i)
        shown << NetworkPage::octet(input, i)->property("text").toString();
    QCOMPARE(shown.join('.'), page.address("Subnet Mask"));
    QCOMPARE(page.address("Subnet Mask"), QString("255.255.255.0"));
    QCOMPARE(Journal::callsButBeeps(), QStringList());
}

PANEL_TEST_MAIN(TestAddressTyping)

#include "test_address_typing.moc"
