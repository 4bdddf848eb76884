#include "shell/approotitem.h"

#include "controls/beepbutton.h"
#include "controls/touchmask.h"
#include "shell/base/documentalias.h"
#include "shell/base/documentend.h"
#include "shell/base/globalinfo.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/screenroot.h"
#include "shell/base/vkbmanager.h"
#include "shell/cardinfo.h"

#include <QtCore/QCoreApplication>
#include <QtQml/private/qqmlcomponentattached_p.h>
#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQuick/private/qquickflickable_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquicktext_p.h>

#include <utility>

namespace QSP {

namespace {

// No wider than a finger needs at the least: what it takes of the page cannot be used to flick it.
constexpr QSizeF scrollBarTouchSize(48.0, 0.0);

// Cleared by the root itself when it dies.
AppRootItem *g_root = nullptr;

// Calls visit(std::integral_constant<Cards, card>) for the given kind.
template <class Visitor> void visitCard(AppRootItem::Cards card, Visitor visit)
{
    using Kind = AppRootItem::Cards;
    switch (card) {
    case Kind::Brightness:
        return visit(std::integral_constant<Kind, Kind::Brightness>());
    case Kind::Time:
        return visit(std::integral_constant<Kind, Kind::Time>());
    case Kind::Buzzer:
        return visit(std::integral_constant<Kind, Kind::Buzzer>());
    case Kind::Network:
        return visit(std::integral_constant<Kind, Kind::Network>());
    case Kind::NIC:
        return visit(std::integral_constant<Kind, Kind::NIC>());
    case Kind::DNS:
        return visit(std::integral_constant<Kind, Kind::DNS>());
    case Kind::Version:
        return visit(std::integral_constant<Kind, Kind::Version>());
    case Kind::Language:
        return visit(std::integral_constant<Kind, Kind::Language>());
    case Kind::Wifi:
        return visit(std::integral_constant<Kind, Kind::Wifi>());
    }
}

template <AppRootItem::Cards card> void registerCardTypes()
{
    static const bool registered = (CardInfo<card>::registerTypes(), true);
    Q_UNUSED(registered)
}

template <AppRootItem::Cards card> void prefetchCard()
{
    registerCardTypes<card>();
    CardInfo<card>::pComp.prefetch(CardInfo<card>::document());
}

} // namespace

AppRootItem::AppRootItem(QQuickItem *parent) : QQuickRectangle(parent)
{
    g_root = this;
    ScreenRoot::setItem(this);
    static const int beepButtonType = qmlRegisterType<BeepButton>("QQuickSystemSet", 1, 0, "BeepButton");
    Q_UNUSED(beepButtonType)
    qRegisterMetaType<QSP::AppRootItem::MenuIndex>();
    setColor(QColor(0xF4, 0xF5, 0xF5));
    connect(this, &AppRootItem::currentPageChanged, this, &AppRootItem::changePage);
    // Before any card looks.
    connect(this, &AppRootItem::opened, &m_panel, &Panel::read);
    catchEvents();
    followVisibility();
}

AppRootItem::~AppRootItem()
{
    end();
    // Now and not when the item's own destructor has run: a field that loses its focus on the way
    // must not find a root to give the focus to.
    if (g_root != this)
        return;
    g_root = nullptr;
    ScreenRoot::setItem(nullptr);
    ScreenRoot::setCardColumn(nullptr);
}

void AppRootItem::catchEvents()
{
    setAcceptedMouseButtons(Qt::AllButtons);
    setAcceptTouchEvents(true);
    setAcceptHoverEvents(true);
    setCursor(Qt::ArrowCursor);
}

// What hits nothing of the screen must not reach the host's items underneath.

void AppRootItem::mousePressEvent(QMouseEvent *event)
{
    // Else what lies underneath could still take over what becomes a drag.
    setKeepMouseGrab(true);
    event->accept();
}

void AppRootItem::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
}

void AppRootItem::wheelEvent(QWheelEvent *event)
{
    event->accept();
}

void AppRootItem::touchEvent(QTouchEvent *event)
{
    setKeepTouchGrab(true);
    event->accept();
}

void AppRootItem::followVisibility()
{
    connect(this, &QQuickItem::visibleChanged, this, [this] {
        m_isFocusDue = !isVisible();
        if (m_isFocusDue) {
            // With an older screen that a host hides at last goes only what it edits itself.
            if (g_root == this)
                VkbManager::instance().showVkb(false);
            return;
        }
        m_focus.begin();
        emit opened();
    });
    connect(this, &QQuickItem::windowChanged, this, [this] {
        if (isVisible())
            m_focus.begin();
    });
    // The last that the toolkit says of an item that was hidden: by now popups are closed, and the host has
    // shown again what is to have the focus.
    connect(this, &QQuickItem::visibleChildrenChanged, this, [this] {
        if (std::exchange(m_isFocusDue, false) && !isVisible())
            m_focus.end();
    });
}

void AppRootItem::end()
{
    // As in a screen that is hidden, an edit under way is taken back while its field is whole: a field
    // that lost its focus in the course of dying would confirm what is half typed. The host is not told,
    // since what it would do about it may have gone already.
    disconnect(this, &QQuickItem::visibleChanged, nullptr, nullptr);
    disconnect(this, &QQuickItem::visibleChildrenChanged, nullptr, nullptr);
    setVisible(false);
    if (g_root == this)
        VkbManager::instance().showVkb(false);
    m_focus.drop();
    endDocuments(this);
}

AppRootItem *AppRootItem::instance()
{
    return g_root;
}

void AppRootItem::init(QQmlEngine *engine)
{
    GlobalInfo &info = GlobalInfo::instance();
    info.setQmlEngine(engine);
    // Comes while the whole screen lives, also when it goes with an item of the host that is deleted.
    connect(qobject_cast<QQmlComponentAttached *>(qmlAttachedPropertiesObject<QQmlComponent>(this)),
            &QQmlComponentAttached::destruction, this, &AppRootItem::end);

    m_titleBar = aliasOf<QQuickItem>(this, "titleBar");
    m_titleText = aliasOf<QQuickText>(this, "titleText");
    m_menuBar = aliasOf<QQuickRectangle>(this, "menuBar");
    m_cardsParent = aliasOf<QQuickItem>(this, "cardsParent");
    m_cardPool = aliasOf<QQuickFlickable>(this, "cardPool");
    m_settingsText = aliasOf<QQuickText>(this, "settingsText");
    m_menuColumn = aliasOf<QQuickItem>(m_menuBar, "column");
    m_bottomContainer = aliasOf<QQuickItem>(m_menuBar, "bottomContainer");
    ScreenRoot::setCardColumn(m_cardsParent);

    TouchMask::cover(aliasOf<QQuickItem>(this, "scrollBarTouchItem"), scrollBarTouchSize);
    // Long enough to tell a scroll from a tap with a glove.
    m_cardPool->setPressDelay(200);
    setMultilingualText(m_settingsText,
                        [] { return QCoreApplication::translate("QSP::AppRootItem", "Settings"); });
    connect(&info, &GlobalInfo::localeChanged, this, &AppRootItem::updateTitleText);
    if (window())
        info.initializeNativeOrientation(window());
    else
        connect(this, &QQuickItem::windowChanged, this, &AppRootItem::onWindowAvailable);

    adjustTitle();
    adjustMenu();
    if (!shouldMenuFill()) {
        addCard<Cards::Brightness>();
        addCard<Cards::Time>();
        addCard<Cards::Buzzer>();
    }
}

void AppRootItem::onWindowAvailable(QQuickWindow *window)
{
    if (!window)
        return;
    GlobalInfo::instance().initializeNativeOrientation(window);
    disconnect(this, &QQuickItem::windowChanged, this, &AppRootItem::onWindowAvailable);
}

void AppRootItem::open()
{
    GlobalInfo::instance().checkExternalLanguageChange();
    setVisible(true);
}

void AppRootItem::close()
{
    highlightMenuButton(GlobalInfo::instance().isStartedFromVistor() ? MenuIndex::Exit : MenuIndex::Reboot,
                        false);
    if (!shouldMenuFill()) {
        setCurrentPage(MenuIndex::General);
        hide();
        return;
    }
    highlightMenuButton(m_currentPage, false);
    showCard(m_currentPage, false);
    for (MenuIndex page :
         {MenuIndex::General, MenuIndex::Network, MenuIndex::Version, MenuIndex::Language, MenuIndex::Wifi})
        showCard(page, false);
    m_currentPage = MenuIndex::None;
    showMenu();
    hide();
}

void AppRootItem::hide()
{
    // Not whether it can be seen: the host may have hidden what lies around the screen.
    const auto isOpen = [this] { return QQuickItemPrivate::get(this)->explicitVisible; };
    const bool wasOpen = isOpen();
    setVisible(false);
    if (!wasOpen)
        return;
    const auto tellHost = [this, isOpen] {
        if (!isOpen())
            emit closed();
    };
    QMetaObject::invokeMethod(this, tellHost, Qt::QueuedConnection);
}

void AppRootItem::setCurrentPage(MenuIndex page)
{
    if (page == m_currentPage) {
        returnHighlight();
        return;
    }
    const MenuIndex old = m_currentPage;
    m_currentPage = page;
    emit currentPageChanged(page, old);
    if (shouldMenuFill())
        hideMenu();
}

void AppRootItem::changePage(MenuIndex newPage, MenuIndex oldPage)
{
    GlobalInfo::instance().checkExternalLanguageChange();
    highlightMenuButton(oldPage, false);
    returnHighlight();
    showCard(oldPage, false);
    showCard(newPage, true);
    m_cardPool->setContentY(0.0);
    updateTitleText();
}

void AppRootItem::showCard(MenuIndex page, bool show)
{
    switch (page) {
    case MenuIndex::General:
        showCard(Cards::Brightness, show);
        showCard(Cards::Time, show);
        showCard(Cards::Buzzer, show);
        break;
    case MenuIndex::Network:
        showCard(Cards::Network, show);
        showCard(Cards::NIC, show && CardInfo<Cards::NIC>::isWanted(this));
        showCard(Cards::DNS, show && CardInfo<Cards::DNS>::isWanted(this));
        if (show)
            CardInfo<Cards::Network>::pageShown(getCardItem(Cards::Network));
        break;
    case MenuIndex::Language:
        showCard(Cards::Language, show);
        break;
    case MenuIndex::Version:
        showCard(Cards::Version, show);
        break;
    case MenuIndex::Wifi:
        showCard(Cards::Wifi, show);
        break;
    case MenuIndex::Reboot:
    case MenuIndex::Exit:
    case MenuIndex::None:
        break;
    }
}

void AppRootItem::showCard(Cards card, bool show)
{
    if (!getCardItem(card)) {
        // Hiding what was never shown must not build it.
        if (!show)
            return;
        visitCard(card, [this](auto kind) { addCard<decltype(kind)::value>(); });
    }
    if (QQuickItem *item = getCardItem(card))
        item->setVisible(show);
}

void AppRootItem::prefetchFirstPage()
{
    prefetchCard<Cards::Brightness>();
    prefetchCard<Cards::Time>();
    prefetchCard<Cards::Buzzer>();
}

template <AppRootItem::Cards card> void AppRootItem::addCard()
{
    using Info = CardInfo<card>;
    registerCardTypes<card>();
    QQuickItem *item = addCard(Info::pComp.get(Info::document()));
    m_cards[index(card)] = item;
    if (item)
        Info::wire(this, item);
}

QQuickItem *AppRootItem::addCard(QQmlComponent *component)
{
    return EmbeddedComponent::createItem(component, m_cardsParent, [this](QQuickItem *item) {
        item->setWidth(m_cardsParent->width());
        connect(m_cardsParent, &QQuickItem::widthChanged, item,
                [this, item] { item->setWidth(m_cardsParent->width()); });
    });
}

} // namespace QSP
