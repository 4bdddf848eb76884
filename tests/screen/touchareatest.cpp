#include "tests/screen/touchareatest.h"

#include <cmath>

QQuickItem *TouchAreaTest::alias(const QQuickItem *item, const char *name)
{
    return item->property(name).value<QQuickItem *>();
}

void TouchAreaTest::addSizes()
{
    QTest::addColumn<QSize>("size");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes)
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void TouchAreaTest::init()
{
    beginWatch();
    m_options = compactOptions();
    HmiSimulator::reset();
    HmiSimulator::setAdapters(1 | 2 | 4 | 16 | 64);
    HmiSimulator::setLanguage(HMI::SystemSet::ENGLISH);
    for (const auto nic : {HMI::SystemSet::LAN0, HMI::SystemSet::LAN1, HMI::SystemSet::WIFI}) {
        HmiSimulator::setNicEnabled(nic, true);
        HmiSimulator::setDhcpOn(nic, false);
    }
    HmiSimulator::setDelays(5);
}

void TouchAreaTest::cleanup()
{
    m_check.reset();
    m_fixture.reset();
    endWatch();
}

void TouchAreaTest::build(const QSize &size)
{
    m_fixture = std::make_unique<ScreenFixture>(QStringLiteral(PANEL_PLUGIN), size, m_options);
    QVERIFY(m_fixture->isBuilt());
    m_fixture->open();
    m_check = std::make_unique<TouchCheck>(*m_fixture);
}

void TouchAreaTest::build()
{
    QFETCH(QSize, size);
    build(size);
}

void TouchAreaTest::look(const char *state, int controls)
{
    Operator::settle(30);
    const int found = m_check->controls();
    // On a low glass one sees less of a page at a time.
    const QQuickWindow *window = m_fixture->window();
    const int least = window->width() < 800 && window->height() < 600 ? qMin(controls, 2) : controls;
    QVERIFY2(found >= least, qPrintable(QStringLiteral("%1: %2 controls").arg(state).arg(found)));
    const QStringList faults = m_check->faults();
    if (!faults.isEmpty())
        QTest::qFail(
            qPrintable(QLatin1String(state) + QStringLiteral(":\n  ") + faults.join(QStringLiteral("\n  "))),
            __FILE__, __LINE__);
}

void TouchAreaTest::lookScrolled(const char *state, int controls)
{
    const qreal most = longestWay();
    for (const qreal part : {0.0, 0.37, 1.0}) {
        scrollTo(std::floor(part * most));
        look(state, controls);
        if (most < 1.0)
            break;
    }
    scrollTo(0.0);
}

qreal TouchAreaTest::longestWay() const
{
    return qMax(0.0, pool()->property("contentHeight").toReal() + pool()->property("bottomMargin").toReal() -
                         pool()->height());
}

void TouchAreaTest::scrollTo(qreal y)
{
    pool()->setProperty("contentY", qBound(0.0, y, longestWay()));
}

void TouchAreaTest::reveal(const QQuickItem *item)
{
    const qreal below = item->mapToItem(pool(), {0.0, item->height()}).y() - pool()->height();
    if (below > 0.0)
        scrollTo(pool()->property("contentY").toReal() + below);
    Operator::settle();
}

void TouchAreaTest::tapMenu(MenuEntry entry)
{
    auto *column = alias(alias(m_fixture->root(), "menuBar"), "column");
    Operator::tap(Operator::allByClass(column, "QSP::BeepButton").value(entry));
    Operator::settle();
}

void TouchAreaTest::returnToMenu()
{
    if (m_fixture->window()->width() < 800)
        Operator::tap(Operator::byClass(alias(m_fixture->root(), "titleBar"), "QSP::BeepButton"));
}

void TouchAreaTest::select(const char *adapter)
{
    auto *buttons = alias(card("QSP::CardNetwork"), "nicButtonFlow");
    Operator::tap(Operator::ancestorOf(Operator::byText(buttons, QLatin1String(adapter)), "QSP::BeepButton"));
    Operator::settle();
}

bool TouchAreaTest::isShown(const char *text) const
{
    return Operator::byText(m_fixture->glass(), QLatin1String(text)) != nullptr;
}
