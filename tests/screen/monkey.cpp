#include "tests/screen/monkey.h"

void Monkey::act()
{
    QQuickWindow *window = m_fixture->window();
    const int choice = m_fingers.choose(100);
    if (choice < 44)
        Operator::tap(window, m_fingers.anyControl(window, m_fixture->glass(), m_fixture->root()));
    else if (choice < 58)
        Operator::tap(window, m_fingers.anywhere(window));
    else if (choice < 68)
        touch();
    else if (choice < 74)
        m_fingers.drag(window);
    else if (choice < 86)
        m_fingers.pressKeys(window);
    else if (choice < 90)
        misbehave();
    else if (choice < 94)
        HmiSimulator::fireAll(m_fingers.choose(2) ? HmiSimulator::FireOn::SimulatorThread
                                                  : HmiSimulator::FireOn::CallingThread);
    else if (choice < 96)
        HmiSimulator::setLanguage(m_fingers.choose(3));
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

void Monkey::touch()
{
    m_fingers.touch(m_fixture->window(), [this] {
        const int meanwhile = m_fingers.choose(12);
        if (meanwhile < 3)
            m_fixture->screen()->close();
        else if (meanwhile == 3)
            host();
    });
}

void Monkey::host()
{
    QQuickItem *content = m_fixture->window()->contentItem();
    switch (m_fingers.choose(4)) {
    case 0:
        resizeTo(glassSizes().at(m_fingers.choose(int(glassSizes().size()))));
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
    const int what = m_fingers.choose(11);
    HmiSimulator::change([this, what](HmiSimulator::Panel &panel) { change(panel, what); });
}

void Monkey::change(HmiSimulator::Panel &panel, int what)
{
    using HmiSimulator::Delivery;
    static const Delivery deliveries[] = {Delivery::Normal, Delivery::Never,       Delivery::Twice,
                                          Delivery::Late,   Delivery::Synchronous, Delivery::Held};
    const int value = m_fingers.choose(-1, 120);
    switch (what) {
    case 0: {
        auto &fault = panel.faults.delivery[m_fingers.choose(HmiSimulator::OperationCount)];
        fault.delivery = deliveries[m_fingers.choose(int(std::size(deliveries)))];
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
