#include "tests/hostile/hands.h"

#include "tests/hostile/hostileservice.h"
#include "tests/screen/networkpage.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QtTest>

Hands::Hands(quint32 seed) : m_fingers(seed)
{
    build();
}

const char *Hands::act()
{
    if (!m_host->root())
        build();
    const int choice = m_fingers.choose(100);
    if (choice < 75)
        operate(choice);
    else
        disturb(choice);
    if (m_host->root() && !m_host->root()->isVisible() && m_fingers.choose(2) == 0)
        m_host->screen()->open();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return m_last;
}

void Hands::leave()
{
    m_host.reset();
    HostileService::deliverKept();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Hands::operate(int choice)
{
    if (choice < 40) {
        m_last = "tap on a control";
        Operator::tap(window(), anyControl());
    } else if (choice < 50) {
        m_last = "tap";
        Operator::tap(window(), m_fingers.anywhere(window()));
    } else if (choice < 58) {
        m_last = "touch";
        touch();
    } else if (choice < 65) {
        m_last = "drag";
        m_fingers.drag(window());
    } else if (choice < 69) {
        m_last = "way to the networks";
        goToWifi();
    } else {
        m_last = "keys";
        m_fingers.pressKeys(window());
    }
}

void Hands::disturb(int choice)
{
    if (choice < 78) {
        m_last = "close";
        m_host->screen()->close();
    } else if (choice < 81) {
        m_last = "open";
        m_host->screen()->open();
    } else if (choice < 90) {
        m_last = "seconds pass";
        hurryClocks();
    } else if (choice < 92) {
        m_last = "late reports";
        HostileService::deliverKept();
    } else if (choice < 96) {
        m_last = "taken out of the window and put back";
        detach();
    } else if (choice < 97) {
        m_last = "window hidden and shown";
        window()->hide();
        QCoreApplication::processEvents();
        Operator::show(window());
    } else if (choice < 98) {
        m_last = "screen deleted";
        delete m_host->root();
    } else if (choice < 99) {
        m_last = "screen deleted later, under a finger";
        Operator::pressAt(window(), m_fingers.anywhere(window()), true);
        m_host->root()->deleteLater();
        Operator::liftAt(window(), m_fingers.anywhere(window()), true);
    } else {
        m_last = "host ended, another begun";
        leave();
        build();
    }
}

void Hands::build()
{
    const auto sizes = glassSizes();
    const QStringList kinds = Host::kinds();
    m_host.reset();
    m_host = Host::make(kinds[m_fingers.choose(kinds.size())], sizes[m_fingers.choose(sizes.size())]);
    m_host->screen()->open();
}

QPoint Hands::anyControl()
{
    return m_fingers.anyControl(window(), m_host->glass(), m_host->root());
}

void Hands::goToWifi()
{
    const auto tap = [this](const QQuickItem *item) {
        if (item)
            Operator::tap(window(), Operator::centerOf(item));
    };
    auto *menu = m_host->root()->property("menuBar").value<QQuickItem *>();
    tap(Operator::allByClass(menu, "QSP::BeepButton").value(1));
    for (const char *name : {"Wi-Fi", "无线网络"})
        tap(Operator::byText(m_host->glass(), QString::fromUtf8(name)));
    tap(Operator::byClass(m_host->glass(), "QSP::WifiTile"));
}

void Hands::touch()
{
    m_fingers.touch(window(), [this] {
        const int meanwhile = m_fingers.choose(16);
        if (meanwhile < 4)
            m_host->screen()->close();
        else if (meanwhile < 7)
            HostileService::deliverKept();
    });
}

void Hands::detach()
{
    QPointer<QQuickItem> root = m_host->root();
    QQuickItem *place = root->parentItem();
    const bool byTouch = m_fingers.choose(2) == 0;
    const QPoint point = anyControl();
    Operator::pressAt(window(), point, byTouch);
    root->setParentItem(nullptr);
    Operator::liftAt(window(), point, byTouch);
    HostileService::deliverKept();
    QCoreApplication::processEvents();
    if (root)
        root->setParentItem(place);
}

void Hands::hurryClocks()
{
    constexpr int second = 1000;
    const auto timers = timersBelow(m_host->root());
    for (const QPointer<QTimer> &timer : timers) {
        if (!timer || !timer->isActive() || timer->interval() < second)
            continue;
        if (timer->isSingleShot())
            timer->stop();
        NetworkPage::expire(timer);
        QCoreApplication::processEvents();
    }
}
