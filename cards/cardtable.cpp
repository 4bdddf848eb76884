// The card table: one row for each kind of card.

#include "cards/device/cardbrightness.h"
#include "cards/device/cardbuzzer.h"
#include "cards/device/cardlanguage.h"
#include "cards/device/cardtime.h"
#include "cards/device/cardversion.h"
#include "controls/beepswitch.h"
#include "controls/brightbutton.h"
#include "shell/cardinfo.h"

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
    return {};
}

template <> void CardInfo<CardKind::Network>::registerTypes() {}

template <> QUrl CardInfo<CardKind::NIC>::document()
{
    return {};
}

template <> void CardInfo<CardKind::NIC>::registerTypes() {}

template <> QUrl CardInfo<CardKind::DNS>::document()
{
    return {};
}

template <> void CardInfo<CardKind::DNS>::registerTypes() {}

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
    return {};
}

template <> void CardInfo<CardKind::Wifi>::registerTypes() {}

template <> void CardInfo<CardKind::Network>::wire(AppRootItem *, QQuickItem *) {}

template <> void CardInfo<CardKind::Network>::pageShown(QQuickItem *) {}

template <> bool CardInfo<CardKind::NIC>::isWanted(const AppRootItem *)
{
    return true;
}

template <> bool CardInfo<CardKind::DNS>::isWanted(const AppRootItem *)
{
    return true;
}

template <> void CardInfo<CardKind::Wifi>::wire(AppRootItem *, QQuickItem *) {}

} // namespace QSP
