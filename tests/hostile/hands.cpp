#include "tests/hostile/hands.h"

#include "tests/hostile/hostileservice.h"
#include "tests/screen/networkpage.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QtTest>

#include <iterator>

Hands::Hands(quint32 seed) : m_random(seed)
{
    build();
}

const char *Hands::act()
{
    if (!m_host->root())
        build();
    const int choice = m_random.bounded(100);
    if (choice < 75)
        operate(choice);
    else
        disturb(choice);
    if (m_host->root() && !m_host->root()->isVisible() && m_random.bounded(2) == 0)
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
        Operator::tap(window(), anywhere());
    } else if (choice < 58) {
        m_last = "touch";
        touch();
    } else if (choice < 65) {
        m_last = "drag";
        drag();
    } else if (choice < 69) {
        m_last = "way to the networks";
        goToWifi();
    } else {
        m_last = "keys";
        pressKeys();
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
        Operator::pressAt(window(), anywhere(), true);
        m_host->root()->deleteLater();
        Operator::liftAt(window(), anywhere(), true);
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
    m_host = Host::make(kinds[m_random.bounded(kinds.size())], sizes[m_random.bounded(sizes.size())]);
    m_host->screen()->open();
}

QPoint Hands::anyControl()
{
    // What can be tapped, rather than the air; each kind of it as often as another, however many there are. The menu
    // less often, or nobody would stay on a page.
    const auto *menu = m_host->root()->property("menuBar").value<QQuickItem *>();
    const bool withMenu = m_random.bounded(6) == 0;
    const QRect glass(QPoint(), window()->size());
    QMap<QByteArray, QVector<QPoint>> targets;
    const auto controls = Operator::items(m_host->glass(), [](const QQuickItem *item) {
        return item->isVisible() && item->isEnabled() &&
               (item->inherits("QQuickAbstractButton") || item->inherits("QQuickTextInput") ||
                item->inherits("QQuickComboBox"));
    });
    for (const QQuickItem *control : controls) {
        const QPoint point = Operator::centerOf(control);
        if (glass.contains(point) && (withMenu || !menu->isAncestorOf(control)))
            targets[control->metaObject()->className()] << point;
    }
    if (targets.isEmpty())
        return anywhere();
    const QVector<QPoint> &kind = *std::next(targets.cbegin(), m_random.bounded(targets.size()));
    return kind.at(m_random.bounded(kind.size()));
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
    Operator::pressAt(window(), anywhere(), true);
    if (m_random.bounded(4) == 0)
        m_host->screen()->close();
    else if (m_random.bounded(4) == 0)
        HostileService::deliverKept();
    Operator::liftAt(window(), anywhere(), true);
}

void Hands::drag()
{
    Operator::drag(window(), anywhere(), anywhere(), 4);
}

void Hands::pressKeys()
{
    static constexpr int keys[] = {Qt::Key_0,      Qt::Key_1,      Qt::Key_9,         Qt::Key_A,
                                   Qt::Key_Period, Qt::Key_Return, Qt::Key_Tab,       Qt::Key_Clear,
                                   Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Space,
                                   Qt::Key_Up,     0x100000};
    for (int i = m_random.bounded(8); i >= 0; --i)
        Operator::key(window(), keys[m_random.bounded(static_cast<int>(std::size(keys)))]);
}

void Hands::detach()
{
    QPointer<QQuickItem> root = m_host->root();
    QQuickItem *place = root->parentItem();
    const bool byTouch = m_random.bounded(2) == 0;
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

QPoint Hands::anywhere()
{
    const QSize size = window()->size();
    return {m_random.bounded(size.width()), m_random.bounded(size.height())};
}
