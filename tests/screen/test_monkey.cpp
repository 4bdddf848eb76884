#include "tests/screen/screenfixture.h"

#include "simulator/simulator.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QGuiApplication>
#include <QtGui/QTouchDevice>

#include <algorithm>
#include <map>

namespace {

constexpr int steps = 700;

using Count = std::map<QString, int>;

/// Hands that know nothing: they tap anywhere, press any key, open and close, while the panel misbehaves.
class Monkey
{
public:
    Monkey(ScreenFixture *fixture, quint32 seed) : m_fixture(fixture), m_random(seed) {}

    void act()
    {
        const int choice = m_random.bounded(100);
        if (choice < 45)
            tapControl();
        else if (choice < 60)
            Operator::tap(m_fixture->window(), anywhere());
        else if (choice < 70)
            touchAnywhere();
        else if (choice < 76)
            Operator::drag(m_fixture->window(), anywhere(), anywhere(), 4);
        else if (choice < 88)
            pressKeys();
        else if (choice < 92)
            misbehave();
        else if (choice < 96)
            HmiSimulator::fireAll(m_random.bounded(2) ? HmiSimulator::FireOn::SimulatorThread
                                                      : HmiSimulator::FireOn::CallingThread);
        else if (choice < 98)
            HmiSimulator::setLanguage(m_random.bounded(3));
        else
            m_fixture->screen()->close();
        if (!m_fixture->root()->isVisible())
            m_fixture->screen()->open();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private:
    QPoint anywhere()
    {
        const QSize size = m_fixture->window()->size();
        return {m_random.bounded(size.width()), m_random.bounded(size.height())};
    }

    void tapControl()
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

    void touchAnywhere()
    {
        const QPoint point = anywhere();
        QTest::touchEvent(m_fixture->window(), Operator::touchScreen()).press(0, point, m_fixture->window());
        if (m_random.bounded(4) == 0)
            m_fixture->screen()->close();
        QTest::touchEvent(m_fixture->window(), Operator::touchScreen())
            .release(0, point, m_fixture->window());
    }

    void pressKeys()
    {
        static const int keys[] = {Qt::Key_0,      Qt::Key_1,         Qt::Key_9,      Qt::Key_A,
                                   Qt::Key_Period, Qt::Key_Return,    Qt::Key_Tab,    Qt::Key_Clear,
                                   Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Up,
                                   Qt::Key_Space,  0x100000};
        for (int i = m_random.bounded(8); i >= 0; --i)
            Operator::key(m_fixture->window(), keys[m_random.bounded(int(std::size(keys)))]);
    }

    void misbehave()
    {
        const int what = m_random.bounded(10);
        const int value = m_random.bounded(-1, 120);
        const auto operation =
            static_cast<HmiSimulator::Operation>(m_random.bounded(HmiSimulator::OperationCount));
        // Late ones would still come when the counting is done; all the others are over by then.
        static const HmiSimulator::Delivery deliveries[] = {
            HmiSimulator::Delivery::Normal, HmiSimulator::Delivery::Never, HmiSimulator::Delivery::Twice,
            HmiSimulator::Delivery::Synchronous, HmiSimulator::Delivery::Held};
        const auto delivery = deliveries[m_random.bounded(int(std::size(deliveries)))];
        HmiSimulator::change([=](HmiSimulator::Panel &panel) {
            switch (what) {
            case 0:
                panel.faults.of(operation).delivery = delivery;
                break;
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
            default:
                panel.buzzer = !panel.buzzer;
                break;
            }
        });
    }

    ScreenFixture *m_fixture;
    QRandomGenerator m_random;
};

// By its signal, not by a tap: here the way to a button must not matter.
void click(QQuickItem *below, const QString &text)
{
    QQuickItem *label = Operator::byText(below, text);
    if (QQuickItem *button = Operator::ancestorOf(label, "QSP::BeepButton"))
        QMetaObject::invokeMethod(button, "clicked");
}

void finishRequests()
{
    HmiSimulator::waitIdle();
    Operator::settle(50);
}

void showPage(ScreenFixture &fixture, const char *page)
{
    fixture.screen()->close();
    fixture.screen()->open();
    click(fixture.root()->property("menuBar").value<QQuickItem *>(), QLatin1String(page));
    Operator::settle(50);
}

// Shows whatever is built on first need only: pages, adapters, lists, dialogs.
void buildEverything(ScreenFixture &fixture)
{
    for (const char *page : {"Version", "Language"})
        showPage(fixture, page);
    showPage(fixture, "General");
    QMetaObject::invokeMethod(fixture.card("QSP::CardTime"), "openDialog");
    showPage(fixture, "Network");
    for (const char *adapter : {"LAN0", "LAN1", "4G", "VPN", "Wi-Fi"}) {
        click(fixture.card("QSP::CardNetwork"), QLatin1String(adapter));
        const auto boxes = Operator::allByClass(fixture.root(), "QQuickComboBox");
        for (QQuickItem *box : boxes) {
            auto *list = box->property("popup").value<QObject *>();
            QMetaObject::invokeMethod(list, "open");
            Operator::settle(50);
            QMetaObject::invokeMethod(list, "close");
        }
    }
    click(fixture.card("QSP::CardNIC"), QStringLiteral("Test"));
    finishRequests();
    QMetaObject::invokeMethod(fixture.card("QSP::CardNetwork"), "switchToWifiCard");
    QQuickItem *wifi = fixture.card("QSP::CardWifi");
    QMetaObject::invokeMethod(wifi, "onClickScanWifi");
    finishRequests();
    QMetaObject::invokeMethod(Operator::allByClass(wifi, "QSP::BeepButton").constLast(), "clicked");
    finishRequests();
}

bool isBelow(const QObject *object, const QObject *ancestor)
{
    while (object && object != ancestor)
        object = object->parent();
    return object;
}

// Every object of the screen by its class, in a state that is the same each time. The keyboard is the
// panel's: it keeps as many keys as the largest of its pages had that anybody has come upon.
Count atRest(ScreenFixture &fixture)
{
    fixture.screen()->close();
    HmiSimulator::reset();
    HmiSimulator::setDelays(0);
    fixture.screen()->open();
    buildEverything(fixture);
    fixture.screen()->close();
    // A request for a lease may still be to come.
    const auto requests = fixture.root()->findChildren<QTimer *>(QStringLiteral("leaseRequest"));
    const bool isQuiet = QTest::qWaitFor([&requests] {
        return std::none_of(requests.begin(), requests.end(),
                            [](const QTimer *timer) { return timer->isActive(); });
    });
    if (!isQuiet)
        QTest::qFail("a lease is asked for without end", __FILE__, __LINE__);
    finishRequests();
    Count count;
    const auto *keyboard = fixture.glass()->findChild<QObject *>(QStringLiteral("vkbKeyboard"));
    const auto objects = fixture.glass()->findChildren<QObject *>();
    for (const QObject *object : objects) {
        if (!keyboard || !isBelow(object, keyboard))
            ++count[QLatin1String(object->metaObject()->className())];
    }
    return count;
}

} // namespace

class TestMonkey : public PanelTest
{
    Q_OBJECT

private slots:
    void leavesEverythingAsItWas_data();
    void leavesEverythingAsItWas();
};

void TestMonkey::leavesEverythingAsItWas_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<quint32>("seed");
    QTest::newRow("wide") << QSize(1024, 600) << 20U;
    QTest::newRow("small") << QSize(800, 480) << 3U;
    QTest::newRow("narrow") << QSize(480, 800) << 7U;
    QTest::newRow("compact") << QSize(480, 272) << 11U;
}

void TestMonkey::leavesEverythingAsItWas()
{
    QFETCH(QSize, size);
    QFETCH(quint32, seed);
    HmiSimulator::reset();
    HmiSimulator::setDelays(20);
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), size, compactOptions());
    fixture.open();
    // The first half may build what is built on first need; the second must add nothing.
    Monkey monkey(&fixture, seed);
    for (int i = 0; i < steps; ++i)
        monkey.act();
    const Count before = atRest(fixture);
    fixture.screen()->open();
    Monkey again(&fixture, seed);
    for (int i = 0; i < steps; ++i)
        again.act();
    const Count after = atRest(fixture);
    QStringList grown;
    for (const auto &[name, number] : after) {
        const auto known = before.find(name);
        const int then = known == before.end() ? 0 : known->second;
        if (number > then)
            grown << QStringLiteral("%1 from %2 to %3").arg(name).arg(then).arg(number);
    }
    QVERIFY2(grown.isEmpty(), qPrintable(grown.join(QStringLiteral(", "))));
}

PANEL_TEST_MAIN(TestMonkey)

#include "test_monkey.moc"
