#pragma once

#include "cards/network/cardnetwork.h"
#include "cards/wifi/cardwifi.h"
#include "controls/beepbutton.h"
#include "controls/dialog.h"
#include "shell/approotitem.h"
#include "tests/classes/cardscene.h"
#include "tests/classes/wifireports.h"
#include "tests/support/journal.h"

/// The Wi-Fi page on a real screen, reached from the network card; reports of the panel come by hand.
class WifiScene : public CardScene, public WifiReports
{
public:
    explicit WifiScene(const QSize &size = {1024, 600}) : CardScene(size)
    {
        root()->setCurrentPage(QSP::AppRootItem::MenuIndex::Network);
        network()->setCurrentNIC(HMI::SystemSet::WIFI);
        root()->setCurrentPage(QSP::AppRootItem::MenuIndex::Wifi);
        Operator::settle();
        HmiSimulator::setManual(true);
        // The lease that the network card asks for when it shows an adapter with DHCP.
        HmiSimulator::dropPending();
        HmiSimulator::clearJournal();
    }

    static QSP::AppRootItem *root() { return QSP::AppRootItem::instance(); }
    static QSP::CardNetwork *network()
    {
        return qobject_cast<QSP::CardNetwork *>(root()->getCardItem(QSP::AppRootItem::Cards::Network));
    }
    static QSP::CardWifi *wifi()
    {
        return qobject_cast<QSP::CardWifi *>(root()->getCardItem(QSP::AppRootItem::Cards::Wifi));
    }

    static QQuickItem *part(const char *alias) { return wifi()->property(alias).value<QQuickItem *>(); }
    static QSP::BeepButton *scanButton() { return qobject_cast<QSP::BeepButton *>(part("scanButton")); }
    QQuickItem *resetButton() const
    {
        return Operator::ancestorOf(Operator::byText(wifi(), QStringLiteral("Reset")), "QSP::BeepButton");
    }

    /// The names that a scan of the simulated panel lists, from top to bottom.
    static QStringList neighbours()
    {
        return {QStringLiteral("Works Hall Guests"),
                QStringLiteral("Maintenance"),
                QStringLiteral("Büro Süd"),
                QStringLiteral("装配车间"),
                QStringLiteral("装配线"),
                QStringLiteral("Pump Room 3"),
                QStringLiteral("Forklift Charging Bay, East Gate"),
                QStringLiteral("Warehouse")};
    }
    /// The names in the list, from top to bottom.
    static QStringList listed() { return Operator::visibleTexts(part("list")); }
    /// The name of the joined network as shown on top; null when the row is hidden.
    static QString current() { return Operator::visibleTexts(part("current")).value(0); }
    QQuickItem *row(const QString &name) const
    {
        return Operator::ancestorOf(Operator::byText(part("list"), name), "QSP::WifiRow");
    }

    /// Taps the scan button and lets the list come.
    void scan() const
    {
        Operator::tap(scanButton());
        QVERIFY(report("scanWifi"));
        Operator::settle(20);
    }

    // The dialog; null or empty while it is closed.
    QQuickItem *dialogBody() const { return Operator::byClass(glass(), "QSP::WifiPasswordBody"); }
    QQuickItem *input() const { return Operator::byClass(dialogBody(), "QQuickTextInput"); }
    QStringList dialogTexts() const
    {
        return dialogBody() ? Operator::visibleTexts(dialogBody()->parentItem()) : QStringList();
    }
    void tapInDialog(const QString &text) const
    {
        Operator::tap(Operator::ancestorOf(Operator::byText(dialogBody(), text), "QSP::BeepButton"));
    }
    void closeDialog() const
    {
        Operator::tap(
            Operator::byIcon(dialogBody()->parentItem(), QStringLiteral("close.png"))->parentItem());
        Operator::settle(20);
    }
    /// Types into the password field, which gets the focus first.
    void typePassword(const QString &password) const
    {
        Operator::tap(input());
        Operator::type(window(), password);
    }
};
