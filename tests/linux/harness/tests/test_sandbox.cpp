#include "tests/linux/harness/sandbox.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

/// Run by nm-harness: a program in C++ gets from the sandbox what harnessctl gets.
class TestSandbox : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(Sandbox::isAround()); }
    void answers();
    void acts();
    void refuses();
    void saysWhenThereIsNone();
};

void TestSandbox::answers()
{
    const std::optional<QStringList> addresses =
        Sandbox::tell({QStringLiteral("addresses"), QStringLiteral("lan0")});
    QVERIFY(addresses);
    QCOMPARE(addresses->size(), 1);
    QVERIFY(addresses->constFirst().startsWith(QLatin1String("192.168.50.1")));
    const std::optional<QStringList> routes = Sandbox::tell({QStringLiteral("routes")});
    QVERIFY(routes);
    QCOMPARE(*routes,
             QStringList({QStringLiteral("lan0 192.168.50.1 100"), QStringLiteral("lan1 192.168.60.1 200")}));
}

void TestSandbox::acts()
{
    const auto hasCarrier = [] {
        QProcess process;
        process.start(QStringLiteral("ip"),
                      {QStringLiteral("link"), QStringLiteral("show"), QStringLiteral("lan1")});
        process.waitForFinished();
        return process.readAll().contains("LOWER_UP");
    };
    QVERIFY(hasCarrier());
    QVERIFY(Sandbox::tell({QStringLiteral("cable"), QStringLiteral("lan1"), QStringLiteral("out")}));
    QTRY_VERIFY(!hasCarrier());
    QVERIFY(Sandbox::tell({QStringLiteral("cable"), QStringLiteral("lan1"), QStringLiteral("in")}));
    QTRY_VERIFY(hasCarrier());
}

void TestSandbox::refuses()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("refuses: error: fly: .*")));
    QVERIFY(!Sandbox::tell({QStringLiteral("fly")}));
}

void TestSandbox::saysWhenThereIsNone()
{
    const QByteArray path = qgetenv("PANEL_HARNESS");
    qputenv("PANEL_HARNESS", "/nowhere/control");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("refuses: ")));
    QVERIFY(!Sandbox::tell({QStringLiteral("routes")}));
    qunsetenv("PANEL_HARNESS");
    QVERIFY(!Sandbox::isAround());
    qputenv("PANEL_HARNESS", path);
}

QTEST_GUILESS_MAIN(TestSandbox)

#include "test_sandbox.moc"
