#include "tests/classes/fingeracts.h"
#include "tests/support/paneltest.h"

#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickmousearea_p.h>

/// What no finger can reach is not tapped, whoever asks for it.
class TestOutOfReach : public PanelTest
{
    Q_OBJECT

private slots:
    static void failsTheTest();
};

/// Tests that have to fail, each in the way of its row. They run in a process of their own, see
/// TestOutOfReach::failsTheTest().
class OutOfReach : public PanelTest
{
    Q_OBJECT

private slots:
    void act_data();
    void act();
};

namespace {

constexpr char outOfReach[] = "--out-of-reach";

} // namespace

void OutOfReach::act_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<QString>("obstacle");
    for (const auto &[name, act] : acts) {
        for (const char *obstacle : {"covered", "beside the glass", "hidden", "missing"})
            QTest::addRow("%s, %s", name, obstacle) << act << QString::fromLatin1(obstacle);
    }
}

void OutOfReach::act()
{
    QFETCH(const Act, act);
    QFETCH(const QString, obstacle);
    QQuickWindow window;
    window.resize(100, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QQuickMouseArea button(window.contentItem());
    button.setSize({100, 100});
    QQuickMouseArea curtain(window.contentItem());
    curtain.setSize({60, 60});
    curtain.setVisible(obstacle == QLatin1String("covered"));
    button.setX(obstacle == QLatin1String("beside the glass") ? 60 : 0);
    button.setVisible(obstacle != QLatin1String("hidden"));
    const QSignalSpy pressed(&button, &QQuickMouseArea::pressedChanged);
    const QSignalSpy taken(&curtain, &QQuickMouseArea::pressedChanged);
    act(obstacle == QLatin1String("missing") ? nullptr : &button);
    QVERIFY2(pressed.isEmpty() && taken.isEmpty(), "it was done all the same");
}

// A test that fails cannot be watched from within: the failure would be this one's.
void TestOutOfReach::failsTheTest()
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(outOfReach)});
    QVERIFY(process.waitForFinished());
    const QString told = QString::fromLocal8Bit(process.readAllStandardOutput());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QStringList failures;
    const QStringList lines = told.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("FAIL!")))
            failures << line;
    }
    const QVector<QPair<QString, QString>> reasons{
        {QStringLiteral("covered"), QStringLiteral("is covered by")},
        {QStringLiteral("beside the glass"), QStringLiteral("not on the glass")},
        {QStringLiteral("hidden"), QStringLiteral("not on the glass")},
        {QStringLiteral("missing"), QStringLiteral("there is no such item")},
    };
    for (const auto &[name, act] : acts) {
        for (const auto &[obstacle, reason] : reasons) {
            const QString row = QStringLiteral("OutOfReach::act(%1, %2)").arg(QLatin1String(name), obstacle);
            const QStringList ofRow = failures.filter(row);
            QVERIFY2(ofRow.size() == 1 && ofRow.constFirst().contains(reason), qPrintable(row + '\n' + told));
        }
    }
    QCOMPARE(failures.size(), 12);
}

int main(int argc, char **argv)
{
    PanelTest::prepareEnvironment();
    const QGuiApplication application(argc, argv);
    PanelTest::prepareApplication();
    if (QCoreApplication::arguments().mid(1) == QStringList{QString::fromLatin1(outOfReach)}) {
        OutOfReach doomed;
        return QTest::qExec(&doomed, {QCoreApplication::applicationFilePath()});
    }
    TestOutOfReach test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_outofreach.moc"
