// The card table: one row for each kind of card.

#include "cards/about/cardlanguage.h"
#include "cards/about/cardversion.h"
#include "cards/general/cardbrightness.h"
#include "cards/general/cardbuzzer.h"
#include "cards/general/cardtime.h"
#include "cards/network/carddns.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/cardnic.h"
#include "cards/wifi/cardwifi.h"
#include "controls/beepbutton.h"
#include "controls/beepswitch.h"
#include "controls/brightbutton.h"
#include "controls/cipinput.h"
#include "controls/combobox.h"
#include "controls/dialog.h"
#include "controls/stepslider.h"
#include "panel/panel.h"
#include "shell/base/qmltype.h"
#include "shell/cardinfo.h"
#include "shell/rootof.h"

#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickitem_p.h>

namespace QSP {

namespace {

// A tunnel has neither servers of names of its own, nor can it be the default adapter.
bool isNoVpnSelected(AppRootItem *root)
{
    // Without the card on which one selects, the other cards of the page show the first adapter.
    if (root->isHidden(AppRootItem::Cards::Network))
        root->panel().selectFirst();
    return panelOf(root).selected() != HMI::SystemSet::VPN;
}

void wireNetwork(AppRootItem *root, QQuickItem *card)
{
    const auto *network = qobject_cast<CardNetwork *>(card);
    if (!network)
        return;
    QObject::connect(network, &CardNetwork::switchToWifiCard, root,
                     &AppRootItem::setCurrentPage<AppRootItem::MenuIndex::Wifi>);
    QObject::connect(network, &CardNetwork::currentNICChanged, root, &AppRootItem::updateCards);
}

void networkShown(QQuickItem *card)
{
    if (auto *network = qobject_cast<CardNetwork *>(card))
        network->updateWifiTimer();
}

void wireLanguage(AppRootItem *root, QQuickItem *card)
{
    if (const auto *language = qobject_cast<CardLanguage *>(card))
        language->languageModel()->setLanguages(root->options().languages);
}

void wireWifi(AppRootItem *root, QQuickItem *card)
{
    auto *wifi = qobject_cast<CardWifi *>(card);
    if (!wifi)
        return;
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

// For queued connections and documents.
void registerAdapterType()
{
    qRegisterMetaType<HMI::SystemSet::NIC>("HMI::SystemSet::NIC");
}

} // namespace

std::vector<CardRow> &cardTable()
{
    using Kind = AppRootItem::Cards;
    using Page = AppRootItem::MenuIndex;
    static std::vector<CardRow> rows = {
        {Kind::Brightness,
         "brightness",
         Page::General,
         "qrc:/setting/card/Brightness.qml",
         &CardInfo<Kind::Brightness>::pComp,
         {registerQmlType<CardBrightness>, BrightButton::registerType, StepSlider::registerType}},
        {Kind::Time,
         "time",
         Page::General,
         "qrc:/setting/card/DateTime.qml",
         &CardInfo<Kind::Time>::pComp,
         {registerQmlType<CardTime>}},
        {Kind::Buzzer,
         "buzzer",
         Page::General,
         "qrc:/setting/card/Buzzer.qml",
         &CardInfo<Kind::Buzzer>::pComp,
         {registerQmlType<CardBuzzer>, BeepSwitch::registerType}},
        {Kind::Network,
         "network",
         Page::Network,
         "qrc:/setting/card/Network.qml",
         &CardInfo<Kind::Network>::pComp,
         {registerQmlType<CardNetwork>, BeepSwitch::registerType, CIpInput::registerType,
          registerAdapterType},
         wireNetwork,
         nullptr,
         networkShown},
        {Kind::NIC,
         "defaultAdapter",
         Page::Network,
         "qrc:/setting/card/NIC.qml",
         &CardInfo<Kind::NIC>::pComp,
         {registerQmlType<CardNIC>, ComboBox::registerType, Dialog::registerType},
         nullptr,
         isNoVpnSelected},
        {Kind::DNS,
         "dns",
         Page::Network,
         "qrc:/setting/card/DNS.qml",
         &CardInfo<Kind::DNS>::pComp,
         {registerQmlType<CardDNS>, CIpInput::registerType},
         nullptr,
         isNoVpnSelected},
        {Kind::Version,
         "version",
         Page::Version,
         "qrc:/setting/card/Version.qml",
         &CardInfo<Kind::Version>::pComp,
         {registerQmlType<CardVersion>}},
        {Kind::Language,
         "language",
         Page::Language,
         "qrc:/setting/card/Language.qml",
         &CardInfo<Kind::Language>::pComp,
         {registerQmlType<CardLanguage>, registerQmlType<LanguageModel>},
         wireLanguage},
        {Kind::Wifi,
         "wifi",
         Page::Wifi,
         "qrc:/setting/card/Wifi.qml",
         &CardInfo<Kind::Wifi>::pComp,
         {registerQmlType<CardWifi>, Dialog::registerType},
         wireWifi},
    };
    return rows;
}

} // namespace QSP
