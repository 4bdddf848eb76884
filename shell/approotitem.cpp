#include "shell/approotitem.h"

#include "controls/beepbutton.h"
#include "controls/touchmask.h"
#include "shell/base/documentalias.h"
#include "shell/base/documentend.h"
#include "shell/base/globalinfo.h"
#include "shell/base/logging.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/palette.h"
#include "shell/base/qmltype.h"
#include "shell/base/screenroot.h"
#include "shell/base/service.h"
#include "shell/base/vkbmanager.h"
#include "shell/cardstack.h"
#include "shell/menu.h"
#include "shell/pagetable.h"
#include "shell/rebootdialog.h"
#include "shell/titlebar.h"

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

} // namespace

AppRootItem::AppRootItem(QQuickItem *parent) : QQuickRectangle(parent)
{
    g_root = this;
    ScreenRoot::setItem(this);
    // For the buttons of the menu.
    registerQmlType<BeepButton>();
    qRegisterMetaType<QSP::AppRootItem::MenuIndex>();
    setColor(Palette::instance().background);
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
    // Else a mouse pointer over the screen would take its shape from the host's items underneath.
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
        if (m_isOpen != isVisible())
            qCDebug(logShell, isVisible() ? "shown" : "hidden");
        m_isFocusDue = !isVisible();
        m_isOpen = isVisible();
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

void AppRootItem::init(QQmlEngine *engine, const HostOptions &options)
{
    m_options = options;
    GlobalInfo &info = GlobalInfo::instance();
    info.setQmlEngine(engine);
    // Comes while the whole screen lives, also when it goes with an item of the host that is deleted.
    connect(qobject_cast<QQmlComponentAttached *>(qmlAttachedPropertiesObject<QQmlComponent>(this)),
            &QQmlComponentAttached::destruction, this, &AppRootItem::end);

    // Before anything measures what the document lays out.
    setProperty("isCompact", info.isCompact());
    m_menu = std::make_unique<Menu>(aliasOf<QQuickRectangle>(this, "menuBar"),
                                    aliasOf<QQuickText>(this, "settingsText"), this);
    connect(m_menu.get(), &Menu::tapped, this, &AppRootItem::takeEntry);
    m_titleBar = std::make_unique<TitleBar>(aliasOf<QQuickItem>(this, "titleBar"),
                                            aliasOf<QQuickText>(this, "titleText"), m_menu.get(), this);
    connect(m_titleBar.get(), &TitleBar::returnTapped, this, &AppRootItem::showMenu);
    m_cards =
        std::make_unique<CardStack>(this, aliasOf<QQuickItem>(this, "cardsParent"), options.hiddenCards);
    ScreenRoot::setCardColumn(m_cards->column());

    TouchMask::cover(aliasOf<QQuickItem>(this, "scrollBarTouchItem"), scrollBarTouchSize);
    m_cardPool = aliasOf<QQuickFlickable>(this, "cardPool");
    // Long enough to tell a scroll from a tap with a glove.
    m_cardPool->setPressDelay(200);
    followLanguage(this, [this] { updateTitle(); });
    if (window())
        info.initializeNativeOrientation(window());
    else
        connect(this, &QQuickItem::windowChanged, this, &AppRootItem::onWindowAvailable);

    // While menu and title bar are built the documents of the first page are read.
    if (!shouldMenuFill())
        m_cards->readAhead(firstPage());
    adjustTitle();
    adjustMenu();
    showCard(m_currentPage, true);
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

AppRootItem::MenuIndex AppRootItem::firstPage() const
{
    for (const PageRow &row : g_buttonsInfo) {
        if (row.button == PageRow::Button::InColumn && !isHidden(row.page))
            return row.page;
    }
    return MenuIndex::None;
}

void AppRootItem::close()
{
    highlightMenuButton(GlobalInfo::instance().isStartedFromVistor() ? MenuIndex::Exit : MenuIndex::Reboot,
                        false);
    if (!shouldMenuFill()) {
        setCurrentPage(firstPage());
        hide();
        return;
    }
    highlightMenuButton(m_currentPage, false);
    m_cards->hideAll();
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
    if (isHidden(page))
        return;
    qCDebug(logShell, "page: %s in place of %s", nameOf(page), nameOf(m_currentPage));
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
    updateTitle();
}

// Reboot takes the highlight from the current page, and has it until the operator goes on.
void AppRootItem::returnHighlight()
{
    highlightMenuButton(MenuIndex::Reboot, false);
    highlightMenuButton(m_currentPage, true);
}

void AppRootItem::takeEntry(MenuIndex entry)
{
    switch (entry) {
    case MenuIndex::Reboot:
        takeReboot();
        break;
    case MenuIndex::Exit:
        highlightMenuButton(entry, true);
        close();
        break;
    default:
        setCurrentPage(entry);
        // Also when it was the current page all the time.
        if (shouldMenuFill())
            hideMenu();
    }
}

void AppRootItem::takeReboot()
{
    if (!m_options.confirmsReboot) {
        reboot();
        return;
    }
    if (!m_rebootDialog) {
        m_rebootDialog = std::make_unique<RebootDialog>(this);
        connect(m_rebootDialog.get(), &RebootDialog::confirmed, this, &AppRootItem::reboot);
    }
    m_rebootDialog->ask();
}

void AppRootItem::reboot()
{
    highlightMenuButton(m_currentPage, false);
    highlightMenuButton(MenuIndex::Reboot, true);
    qCDebug(logDevice, "reboot asked for");
    callService<&HMI::SystemSet::reboot>();
}

void AppRootItem::hideMenu()
{
    setMenuShown(false);
}

void AppRootItem::showMenu()
{
    setMenuShown(true);
}

void AppRootItem::setMenuShown(bool shown)
{
    m_menu->setShown(shown);
    m_titleBar->setReturnButtonShown(!shown);
    if (shouldMenuFill())
        m_cardPool->setVisible(!shown);
    updateTitle();
}

void AppRootItem::updateTitle()
{
    const bool isMenuBare = shouldMenuFill() && m_menu->isShown();
    m_titleBar->setTitle(isMenuBare ? QString() : pageTitle(m_currentPage));
}

void AppRootItem::adjustTitle()
{
    m_titleBar->adjustTitle();
}

void AppRootItem::adjustMenu()
{
    m_menu->build([this](MenuIndex page) { return isHidden(page); });
    if (shouldMenuFill()) {
        m_cardPool->setVisible(false);
        return;
    }
    m_currentPage = firstPage();
    highlightMenuButton(m_currentPage, true);
    updateTitle();
}

QQuickItem *AppRootItem::createMenuButton(QQuickItem *parent)
{
    return m_menu->createMenuButton(parent);
}

void AppRootItem::addMenuButton(MenuIndex entry)
{
    m_menu->addMenuButton(entry);
}

void AppRootItem::addSeparatorLine()
{
    m_menu->addSeparatorLine();
}

void AppRootItem::highlightMenuButton(MenuIndex page, bool on)
{
    m_menu->highlightMenuButton(page, on);
}

void AppRootItem::addReturnButton()
{
    m_titleBar->addReturnButton();
}

QQuickItem *AppRootItem::returnButton() const
{
    return m_titleBar ? m_titleBar->returnButton() : nullptr;
}

QQuickItem *AppRootItem::menuBar() const
{
    return m_menu ? m_menu->bar() : nullptr;
}

QQuickItem *AppRootItem::titleBar() const
{
    return m_titleBar ? m_titleBar->bar() : nullptr;
}

int AppRootItem::titleHeight() const
{
    const QQuickItem *bar = titleBar();
    return bar ? static_cast<int>(bar->height()) : 0;
}

bool AppRootItem::shouldMenuFill() const
{
    return GlobalInfo::instance().isMenuFill();
}

bool AppRootItem::isHidden(Cards card) const
{
    return m_cards && m_cards->isHidden(card);
}

bool AppRootItem::isHidden(MenuIndex page) const
{
    return m_cards && m_cards->isHidden(page);
}

QQuickItem *AppRootItem::getCardItem(Cards card) const
{
    return m_cards ? m_cards->card(card) : nullptr;
}

QQuickItem *AppRootItem::getCardContainer() const
{
    return m_cards ? m_cards->column() : nullptr;
}

void AppRootItem::showCard(Cards card, bool show)
{
    m_cards->showCard(card, show);
}

void AppRootItem::showCard(MenuIndex page, bool show)
{
    m_cards->showPage(page, show);
}

void AppRootItem::updateCards()
{
    m_cards->updatePage(m_currentPage);
}

void AppRootItem::addCard(Cards card)
{
    m_cards->addCard(card);
}

QQuickItem *AppRootItem::addCard(QQmlComponent *component)
{
    return m_cards->addCard(component);
}

} // namespace QSP
