#include "tests/screen/screenatrest.h"

#include "simulator/simulator.h"

#include <QtGui/private/qfont_p.h>
#include <QtGui/QPixmapCache>
#include <QtQuick/private/qquickpixmapcache_p.h>

#include <algorithm>

namespace {

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
    click(wifi, QStringLiteral("Works Hall Guests"));
    finishRequests();
    QMetaObject::invokeMethod(Operator::allByClass(wifi, "QSP::BeepButton").constLast(), "clicked");
    finishRequests();
}

// What shows the same pictures each time.
void calmPanel()
{
    HmiSimulator::reset();
    HmiSimulator::setDelays(0);
    HmiSimulator::change([](HmiSimulator::Panel &panel) {
        panel.mobile.drift = 0;
        for (HmiSimulator::Network &network : panel.wifi.networks)
            network.drift = 0;
    });
}

// What the panel was asked for and will never answer.
void endWaiting(const QQuickItem *root)
{
    for (const char *name : {"joinLimit", "scanLimit", "pingLimit"}) {
        auto *limit = root->findChild<QTimer *>(QLatin1String(name));
        if (!limit || !limit->isActive())
            continue;
        limit->start(0);
        if (!QTest::qWaitFor([limit] { return !limit->isActive(); }))
            QTest::qFail(name, __FILE__, __LINE__);
    }
}

// What nobody uses any more, but the toolkit keeps for a while: it would hide a leak of some ten KiB.
void emptyCaches(const ScreenFixture &fixture)
{
    fixture.engine()->collectGarbage();
    fixture.engine()->trimComponentCache();
    QQuickPixmap::purgeCache();
    QPixmapCache::clear();
    QFontCache::instance()->clear();
    fixture.window()->releaseResources();
    Operator::awaitFrame(fixture.window());
}

} // namespace

Inventory inventoryAtRest(ScreenFixture &fixture)
{
    fixture.screen()->close();
    calmPanel();
    endWaiting(fixture.root());
    for (const auto language : {HMI::SystemSet::CHINESE, HMI::SystemSet::ENGLISH}) {
        HmiSimulator::setLanguage(language);
        fixture.screen()->close();
        fixture.screen()->open();
    }
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
    emptyCaches(fixture);
    // The keyboard is the panel's: it keeps as many keys as the largest of its pages had that anybody has come upon.
    const auto *keyboard = fixture.glass()->findChild<QObject *>(QStringLiteral("vkbKeyboard"));
    // The clock has a second timer until the running second ends.
    Inventory held;
    const bool isClockReady = QTest::qWaitFor([&held, keyboard] {
        held = Inventory::take(keyboard);
        return held.timers[QStringLiteral("QSP::SecondTimer")] <= 1;
    });
    if (!isClockReady)
        QTest::qFail("the clock does not come to the full second", __FILE__, __LINE__);
    return held;
}
