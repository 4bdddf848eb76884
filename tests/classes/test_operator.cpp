#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickmousearea_p.h>
#include <QtQuick/private/qquickrectangle_p.h>

#include <array>

/// Those who look at the glass see what was done before, on however busy a machine.
class TestOperator : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void pictureShowsWhatWasJustDone();
    void settledMeansPainted();
    void nothingToPaintPaintsNothing();
    void touchReachesTheItem_data();
    void touchReachesTheItem();
    void whatIsOutOfReachFailsTheTest();

private:
    std::unique_ptr<QQuickWindow> m_window;
    QQuickRectangle *m_face = nullptr;
};

/// Tests that have to fail, each in the way of its row. They run in a process of their own, see
/// TestOperator::whatIsOutOfReachFailsTheTest().
class OutOfReach : public PanelTest
{
    Q_OBJECT

private slots:
    void act_data();
    void act();
};

namespace {

constexpr char outOfReach[] = "--out-of-reach";

/// Takes its place only while the scene is polished, as positioners and texts do.
class Follower : public QQuickItem
{
public:
    explicit Follower(QQuickItem *parent) : QQuickItem(parent) {}
    void updatePolish() override { setX(parentItem()->width() / 2); }
};

using Act = void (*)(QQuickItem *);

struct NamedAct {
    const char *name;
    Act act;
};

constexpr std::array<NamedAct, 3> acts{{
    {"tap", [](QQuickItem *item) { Operator::tap(item); }},
    {"touch", Operator::touch},
    {"press", Operator::press},
}};

} // namespace

Q_DECLARE_METATYPE(Act)

void TestOperator::init()
{
    beginWatch();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(100, 100);
    m_face = new QQuickRectangle(m_window->contentItem());
    m_face->setSize({100, 100});
    m_face->setColor(Qt::red);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    Operator::settle();
}

void TestOperator::cleanup()
{
    m_window.reset();
    endWatch();
}

void TestOperator::pictureShowsWhatWasJustDone()
{
    for (const QColor &color : {QColor(Qt::blue), QColor(Qt::green), QColor(Qt::red)}) {
        m_face->setColor(color);
        QCOMPARE(Operator::picture(m_window.get()).pixelColor(50, 50), color);
    }
}

void TestOperator::settledMeansPainted()
{
    Follower follower(m_face);
    follower.polish();
    // As if another program had taken the time that was given.
    Operator::settle(0);
    QCOMPARE(follower.x(), 50.0);
}

void TestOperator::nothingToPaintPaintsNothing()
{
    QSignalSpy frames(m_window.get(), &QQuickWindow::frameSwapped);
    Operator::settle();
    QCOMPARE(frames.size(), 0);
    m_face->setColor(Qt::blue);
    Operator::settle(0);
    QCOMPARE(frames.size(), 1);
    m_window->hide();
    m_face->setColor(Qt::red);
    Operator::settle(0);
    QCOMPARE(frames.size(), 1);
}

void TestOperator::touchReachesTheItem_data()
{
    QTest::addColumn<Act>("act");
    for (const auto &[name, act] : acts)
        QTest::newRow(name) << act;
}

void TestOperator::touchReachesTheItem()
{
    QFETCH(const Act, act);
    QQuickMouseArea button(m_face);
    button.setSize({100, 100});
    const QSignalSpy pressed(&button, &QQuickMouseArea::pressedChanged);
    act(&button);
    QVERIFY(!pressed.isEmpty());
}

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
void TestOperator::whatIsOutOfReachFailsTheTest()
{
#ifdef PANEL_EMULATED
    QSKIP("an emulated program cannot start another");
#endif
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
    TestOperator test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_operator.moc"
