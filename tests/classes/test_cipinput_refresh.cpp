#include "tests/classes/ipeditscene.h"

using QSP::CIpInput;

/// What becomes of an address that a program shows while the operator edits the old one.
class TestCIpInputRefresh : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void shownAtOnceWithoutAnEdit();
    void waitsForTheEndOfTheEdit_data();
    void waitsForTheEndOfTheEdit();
    void operatorsAddressIsTheNewerOne();
    void theLastOneCounts();
    void nothingButIPv4IsOwed();
    void settingEndsTheDebt_data();
    void settingEndsTheDebt();
    void settingMovesWhatEscapeGoesBackTo_data();
    void settingMovesWhatEscapeGoesBackTo();

private:
    QString shown() const { return m_scene->shown(); }

    std::unique_ptr<IpEditScene> m_scene;
};

void TestCIpInputRefresh::init()
{
    beginWatch();
    m_scene = std::make_unique<IpEditScene>();
}

void TestCIpInputRefresh::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestCIpInputRefresh::shownAtOnceWithoutAnEdit()
{
    m_scene->ip->refreshIp(QStringLiteral("8.8.4.4"));
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("8.8.4.4"));
    QCOMPARE(shown(), QStringLiteral("8.8.4.4"));
    m_scene->ip->refreshIp(QStringLiteral("8.8.4.4"));
    m_scene->ip->refreshIp(QStringLiteral("no address"));
    QCOMPARE(m_scene->changed.count(), 1);
    QCOMPARE(m_scene->edited.count(), 0);
}

void TestCIpInputRefresh::waitsForTheEndOfTheEdit_data()
{
    QTest::addColumn<QString>("end");
    for (const char *end : {"Escape", "hide key", "Escape after typing", "Return",
                            "Return after typing the same", "another field", "disabled", "hidden"})
        QTest::newRow(end) << end;
}

void TestCIpInputRefresh::waitsForTheEndOfTheEdit()
{
    QFETCH(QString, end);
    const CIpInput *other = m_scene->addIp(90);
    Operator::tap(m_scene->box(0));
    m_scene->ip->refreshIp(QStringLiteral("8.8.4.4"));
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("10.20.30.40"));
    QCOMPARE(shown(), QStringLiteral("10.20.30.40"));

    if (end.endsWith(QLatin1String("after typing")))
        m_scene->type(QStringLiteral("1.2.3"));
    if (end.endsWith(QLatin1String("the same")))
        m_scene->type(QStringLiteral("10"));
    if (end.startsWith(QLatin1String("Escape")))
        m_scene->key(Qt::Key_Escape);
    else if (end == QLatin1String("hide key"))
        m_scene->key(QSP::VkbManager::hideKey);
    else if (end.startsWith(QLatin1String("Return")))
        m_scene->key(Qt::Key_Return);
    else if (end == QLatin1String("another field"))
        Operator::tap(AddressScene::box(other, 0));
    else if (end == QLatin1String("disabled"))
        m_scene->ip->setEnabled(false);
    else
        m_scene->ip->setVisible(false);
    QVERIFY(!m_scene->ip->editing());
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("8.8.4.4"));
    QCOMPARE(shown(), QStringLiteral("8.8.4.4"));
    QCOMPARE(m_scene->changed.count(), 1);
    QCOMPARE(m_scene->edited.count(), 0);
    QCOMPARE(ControlScene::isKeyboardShown(), other->editing());
}

void TestCIpInputRefresh::operatorsAddressIsTheNewerOne()
{
    m_scene->enter(0, QStringLiteral("11"));
    m_scene->ip->refreshIp(QStringLiteral("8.8.4.4"));
    m_scene->key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("11.20.30.40"));
    QCOMPARE(m_scene->edited.count(), 1);
    // And the debt is not paid later, over it.
    Operator::tap(m_scene->box(0));
    m_scene->key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("11.20.30.40"));
    QCOMPARE(m_scene->edited.count(), 1);
}

void TestCIpInputRefresh::theLastOneCounts()
{
    Operator::tap(m_scene->box(0));
    m_scene->ip->refreshIp(QStringLiteral("8.8.4.4"));
    m_scene->ip->refreshIp(QStringLiteral("10.20.30.40"));
    m_scene->key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("10.20.30.40"));
    QCOMPARE(m_scene->changed.count() + m_scene->edited.count(), 0);
}

void TestCIpInputRefresh::nothingButIPv4IsOwed()
{
    Operator::tap(m_scene->box(0));
    m_scene->ip->refreshIp(QStringLiteral("8.8.4.4"));
    m_scene->ip->refreshIp(QStringLiteral("fe80::1"));
    m_scene->ip->refreshIp(QString());
    m_scene->key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), QStringLiteral("8.8.4.4"));
}

void TestCIpInputRefresh::settingEndsTheDebt_data()
{
    QTest::addColumn<QString>("ip");
    QTest::newRow("set") << "1.2.3.4";
    QTest::newRow("cleared") << QString();
}

void TestCIpInputRefresh::settingEndsTheDebt()
{
    QFETCH(QString, ip);
    Operator::tap(m_scene->box(0));
    m_scene->ip->refreshIp(QStringLiteral("8.8.4.4"));
    if (ip.isEmpty())
        m_scene->ip->clear();
    else
        m_scene->ip->setIp(ip);
    QCOMPARE(m_scene->ip->ip(), ip);
    m_scene->key(Qt::Key_Return);
    QCOMPARE(m_scene->ip->ip(), ip);
    QCOMPARE(m_scene->edited.count(), 0);
}

void TestCIpInputRefresh::settingMovesWhatEscapeGoesBackTo_data()
{
    settingEndsTheDebt_data();
}

void TestCIpInputRefresh::settingMovesWhatEscapeGoesBackTo()
{
    QFETCH(QString, ip);
    m_scene->enter(0, QStringLiteral("99.98"));
    if (ip.isEmpty())
        m_scene->ip->clear();
    else
        m_scene->ip->setIp(ip);
    m_scene->type(QStringLiteral("7"));
    m_scene->key(Qt::Key_Escape);
    QCOMPARE(m_scene->ip->ip(), ip);
    QCOMPARE(shown(), ip.isEmpty() ? QStringLiteral("0.0.0.0") : ip);
    QCOMPARE(m_scene->edited.count(), 0);
}

PANEL_TEST_MAIN(TestCIpInputRefresh)

#include "test_cipinput_refresh.moc"
