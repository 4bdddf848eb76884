#include "tests/screen/monkey.h"

#include <QtGui/QTouchDevice>

void Monkey::act()
{
    const int choice = m_random.bounded(100);
    if (choice < 44)
        tapControl();
    else if (choice < 58)
        Operator::tap(m_fixture->window(), anywhere());
    else if (choice < 68)
        touchAnywhere();
    else if (choice < 74)
        Operator::drag(m_fixture->window(), anywhere(), anywhere(), 4);
    else if (choice < 86)
        pressKeys();
    else if (choice < 90)
        misbehave();
    else if (choice < 94)
        HmiSimulator::fireAll(m_random.bounded(2) ? HmiSimulator::FireOn::SimulatorThread
                                                  : HmiSimulator::FireOn::CallingThread);
    else if (choice < 96)
        HmiSimulator::setLanguage(m_random.bounded(3));
    else if (choice < 98)
        host();
    else
        m_fixture->screen()->close();
    if (!m_fixture->root()->isVisible())
        m_fixture->screen()->open();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Monkey::endHosting()
{
    m_fixture->root()->setParentItem(m_fixture->window()->contentItem());
    resizeTo(m_size);
}

QPoint Monkey::anywhere()
{
    const QSize size = m_fixture->window()->size();
    return {m_random.bounded(size.width()), m_random.bounded(size.height())};
}

void Monkey::tapControl()
{
    // What can be tapped, rather than the air: else most taps would hit nothing.
    const QRect glass(QPoint(), m_fixture->window()->size());
    QVector<QPoint> targets;
    const auto controls = Operator::items(m_fixture->glass(), [](QQuickItem *item) {
        return item->isVisible() && item->isEnabled() &&
               (item->inherits("QQuickAbstractButton") || item->inherits("QQuickTextInput") ||
                item->inherits("QQuickComboBox"));
    });
    for (const QQuickItem *control : controls) {
        const QPoint point = Operator::centerOf(control);
        if (glass.contains(point))
            targets << point;
    }
    if (!targets.isEmpty())
        Operator::tap(m_fixture->window(), targets[m_random.bounded(targets.size())]);
}

void Monkey::touchAnywhere()
{
    const QPoint point = anywhere();
    QTest::touchEvent(m_fixture->window(), Operator::touchScreen()).press(0, point, m_fixture->window());
    const int meanwhile = m_random.bounded(12);
    if (meanwhile < 3)
        m_fixture->screen()->close();
    else if (meanwhile == 3)
        host();
    QTest::touchEvent(m_fixture->window(), Operator::touchScreen()).release(0, point, m_fixture->window());
}

void Monkey::pressKeys()
{
    static const int keys[] = {Qt::Key_0,      Qt::Key_1,   Qt::Key_9,     Qt::Key_A,      Qt::Key_Period,
                               Qt::Key_Return, Qt::Key_Tab, Qt::Key_Clear, Qt::Key_Escape, Qt::Key_Backspace,
                               Qt::Key_Delete, Qt::Key_Up,  Qt::Key_Space, 0x100000};
    for (int i = m_random.bounded(8); i >= 0; --i)
        Operator::key(m_fixture->window(), keys[m_random.bounded(int(std::size(keys)))]);
}

void Monkey::host()
{
    QQuickItem *content = m_fixture->window()->contentItem();
    switch (m_random.bounded(4)) {
    case 0:
        resizeTo(glassSizes().at(m_random.bounded(int(glassSizes().size()))));
        break;
    case 1:
        // Until the next time.
        m_fixture->root()->setParentItem(m_fixture->root()->parentItem() ? nullptr : content);
        break;
    case 2:
        m_fixture->root()->setVisible(false);
        break;
    default:
        resizeTo(m_size);
        m_fixture->rebuild();
        break;
    }
}

void Monkey::resizeTo(const QSize &size)
{
    m_fixture->window()->resize(size);
    m_fixture->root()->setSize(size);
}

void Monkey::misbehave()
{
    const int what = m_random.bounded(11);
    HmiSimulator::change([this, what](HmiSimulator::Panel &panel) { change(panel, what); });
}

void Monkey::change(HmiSimulator::Panel &panel, int what)
{
    using HmiSimulator::Delivery;
    static const Delivery deliveries[] = {Delivery::Normal, Delivery::Never,       Delivery::Twice,
                                          Delivery::Late,   Delivery::Synchronous, Delivery::Held};
    const int value = m_random.bounded(-1, 120);
    switch (what) {
    case 0: {
        auto &fault = panel.faults.delivery[m_random.bounded(HmiSimulator::OperationCount)];
        fault.delivery = deliveries[m_random.bounded(int(std::size(deliveries)))];
        fault.lateBy = value + 1;
        break;
    }
    case 1:
        panel.faults.nullList = !panel.faults.nullList;
        break;
    case 2:
        panel.faults.clockRefused = !panel.faults.clockRefused;
        break;
    case 3:
        panel.faults.dhcp = value % 3;
        break;
    case 4:
        panel.faults.ping = value % 2 == 0;
        break;
    case 5:
        panel.faults.connect = {1, value % 9, value % 4};
        break;
    case 6:
        panel.bright = value;
        break;
    case 7:
        panel.mobile.state = value % 12;
        panel.mobile.signal = value;
        break;
    case 8:
        panel.vpn.state = value % 12;
        break;
    case 9:
        // All is well again.
        panel.faults = HmiSimulator::Faults();
        break;
    default:
        panel.buzzer = !panel.buzzer;
        break;
    }
}
