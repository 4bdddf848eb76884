#include "tests/classes/fingeracts.h"
#include "tests/support/paneltest.h"

#include <QtQuick/private/qquickmousearea_p.h>
#include <QtQuick/private/qquickrectangle_p.h>

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

private:
    std::unique_ptr<QQuickWindow> m_window;
    QQuickRectangle *m_face = nullptr;
};

namespace {

/// Takes its place only while the scene is polished, as positioners and texts do.
class Follower : public QQuickItem
{
public:
    explicit Follower(QQuickItem *parent) : QQuickItem(parent) {}
    void updatePolish() override { setX(parentItem()->width() / 2); }
};

} // namespace

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

PANEL_TEST_MAIN(TestOperator)
#include "test_operator.moc"
