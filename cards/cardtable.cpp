// The card table: one row for each kind of card.

#include "cards/about/cardlanguage.h"
#include "cards/about/cardversion.h"
#include "cards/general/cardbrightness.h"
#include "cards/general/cardbuzzer.h"
#include "cards/general/cardtime.h"
#include "cards/network/carddns.h"
#include "cards/network/cardlinks.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/cardnic.h"
#include "cards/wifi/cardwifi.h"
#include "controls/beepbutton.h"
#include "controls/beepswitch.h"
#include "controls/brightbutton.h"
#include "controls/cipinput.h"
#include "controls/combobox.h"
#include "controls/dialog.h"
#include "shell/cardinfo.h"

#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickitem_p.h>

namespace QSP {

template <> QUrl CardInfo<CardKind::Brightness>::document()
{
    return QStringLiteral("qrc:/setting/card/Brightness.qml");
}

template <> void CardInfo<CardKind::Brightness>::registerTypes()
{
    qmlRegisterType<CardBrightness>("QQuickSystemSet", 1, 0, "CardBrightness");
    BrightButton::registerType();
}

template <> QUrl CardInfo<CardKind::Time>::document()
{
    return QStringLiteral("qrc:/setting/card/DateTime.qml");
}

template <> void CardInfo<CardKind::Time>::registerTypes()
{
    qmlRegisterType<CardTime>("QQuickSystemSet", 1, 0, "CardTime");
}

template <> QUrl CardInfo<CardKind::Buzzer>::document()
{
    return QStringLiteral("qrc:/setting/card/Buzzer.qml");
}

template <> void CardInfo<CardKind::Buzzer>::registerTypes()
{
    qmlRegisterType<CardBuzzer>("QQuickSystemSet", 1, 0, "CardBuzzer");
    BeepSwitch::registerType();
}

template <> QUrl CardInfo<CardKind::Network>::document()
{
    return QUrl(QStringLiteral("qrc:/setting/card/Network.qml"));
}

template <> void CardInfo<CardKind::Network>::registerTypes()
{
    qmlRegisterType<CardNetwork>("QQuickSystemSet", 1, 0, "CardNetwork");
    BeepSwitch::registerType();
    CIpInput::registerType();
    // For queued connections and documents.
    qRegisterMetaType<HMI::SystemSet::NIC>("HMI::SystemSet::NIC");
}

template <> QUrl CardInfo<CardKind::NIC>::document()
{
    return QUrl(QStringLiteral("qrc:/setting/card/NIC.qml"));
}

template <> void CardInfo<CardKind::NIC>::registerTypes()
{
    qmlRegisterType<CardNIC>("QQuickSystemSet", 1, 0, "CardNIC");
    ComboBox::registerType();
    Dialog::registerType();
}

template <> QUrl CardInfo<CardKind::DNS>::document()
{
    return QUrl(QStringLiteral("qrc:/setting/card/DNS.qml"));
}

template <> void CardInfo<CardKind::DNS>::registerTypes()
{
    qmlRegisterType<CardDNS>("QQuickSystemSet", 1, 0, "CardDNS");
    CIpInput::registerType();
}

template <> QUrl CardInfo<CardKind::Version>::document()
{
    return QUrl(QStringLiteral("qrc:/setting/card/Version.qml"));
}

template <> void CardInfo<CardKind::Version>::registerTypes()
{
    qmlRegisterType<CardVersion>("QQuickSystemSet", 1, 0, "CardVersion");
}

template <> QUrl CardInfo<CardKind::Language>::document()
{
    return QUrl(QStringLiteral("qrc:/setting/card/Language.qml"));
}

template <> void CardInfo<CardKind::Language>::registerTypes()
{
    qmlRegisterType<CardLanguage>("QQuickSystemSet", 1, 0, "CardLanguage");
    qmlRegisterType<LanguageModel>("QQuickSystemSet", 1, 0, "LanguageModel");
}

template <> QUrl CardInfo<CardKind::Wifi>::document()
{
    return QStringLiteral("qrc:/setting/card/Wifi.qml");
}

template <> void CardInfo<CardKind::Wifi>::registerTypes()
{
    qmlRegisterType<CardWifi>("QQuickSystemSet", 1, 0, "CardWifi");
    Dialog::registerType();
}

namespace {

// A tunnel has neither servers of names of its own, nor can it be the default adapter.
bool isVpnSelected(const AppRootItem *root)
{
    const CardNetwork *network = CardLinks::network(root);
    return network && network->currentNIC() == HMI::SystemSet::VPN;
}

} // namespace

template <> void CardInfo<CardKind::Network>::wire(AppRootItem *root, QQuickItem *card)
{
    const auto *network = qobject_cast<CardNetwork *>(card);
    if (!network)
        return;
    QObject::connect(network, &CardNetwork::switchToWifiCard, root,
                     [root] { root->setCurrentPage(AppRootItem::MenuIndex::Wifi); });
    QObject::connect(network, &CardNetwork::currentNICChanged, root, [root](NIC selected) {
        if (root->currentPage() != AppRootItem::MenuIndex::Network)
            return;
        const bool wanted = selected != HMI::SystemSet::VPN;
        root->showCard(CardKind::NIC, wanted);
        root->showCard(CardKind::DNS, wanted);
    });
}

template <> void CardInfo<CardKind::Network>::pageShown(QQuickItem *card)
{
    if (auto *network = qobject_cast<CardNetwork *>(card))
        network->updateWifiTimer();
}

template <> bool CardInfo<CardKind::NIC>::isWanted(const AppRootItem *root)
{
    return !isVpnSelected(root);
}

template <> bool CardInfo<CardKind::DNS>::isWanted(const AppRootItem *root)
{
    return !isVpnSelected(root);
}

template <> void CardInfo<CardKind::Wifi>::wire(AppRootItem *root, QQuickItem *card)
{
    auto *wifi = qobject_cast<CardWifi *>(card);
    if (!wifi)
        return;
    QObject::connect(wifi, &CardWifi::wifiReset, &root->panel().wifi(), &WifiLink::reset);
    BeepButton *button = wifi->returnButton();
    if (!button)
        return;
    // On a narrow screen it takes the place, and the taps, of the arrow that leads to the menu.
    if (QQuickItem *toMenu = root->returnButton()) {
        // The same arrow beneath would hide that this one is pressed.
        const QList<QQuickItem *> beneath = toMenu->childItems();
        for (QQuickItem *arrow : beneath) {
            QObject::connect(button, &QQuickItem::visibleChanged, arrow,
                             [button, arrow] { arrow->setVisible(!button->isVisible()); });
        }
        button->setParentItem(toMenu);
        QQuickItemPrivate::get(button)->anchors()->setFill(toMenu);
    }
    QObject::connect(button, &QQuickAbstractButton::clicked, root,
                     &AppRootItem::setCurrentPage<AppRootItem::MenuIndex::Network>);
}

} // namespace QSP
