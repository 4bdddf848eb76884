#pragma once

#include "panel/panel.h"
#include "shell/base/firsticons.h"
#include "shell/base/focusloan.h"
#include "shell/base/hostoptions.h"

#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/QQuickWindow>

#include <memory>

class QQmlComponent;
class QQmlEngine;
class QQuickFlickable;

namespace QSP {

class CardStack;
class Menu;
class RebootDialog;
class TitleBar;

/// The root of the screen: which page is current, and its cards.
///
/// What pages and cards there are stands in two tables (see PageRow and CardRow); Menu, TitleBar and CardStack
/// look after what is on the glass. Everything runs on the GUI thread.
class AppRootItem : public QQuickRectangle
{
    Q_OBJECT

public:
    /// Menu entries and pages. Wi-Fi is a page without an entry; it highlights Network.
    enum class MenuIndex { General, Network, Language, Version, Reboot, Exit, Wifi, None };
    Q_ENUM(MenuIndex)
    /// Kinds of cards, in the order of their table.
    enum class Cards { Brightness, Time, Buzzer, Network, NIC, DNS, Version, Language, Wifi };
    Q_ENUM(Cards)

    explicit AppRootItem(QQuickItem *parent = nullptr);
    ~AppRootItem() override;

    /// The newest root, or null when there is none.
    static AppRootItem *instance();

    /// Builds title bar, menu and (unless the menu fills the screen) the first page, which is the General
    /// page unless the host hides it. To be called once, after main.qml is complete.
    void init(QQmlEngine *engine, const HostOptions &options = {});
    void open();

    /// What the cards of this screen show and change.
    Panel &panel() { return m_panel; }
    const HostOptions &options() const { return m_options; }

    MenuIndex currentPage() const { return m_currentPage; }
    /// A page whose cards are all hidden is never shown.
    void setCurrentPage(MenuIndex page);
    template <MenuIndex page> void setCurrentPage() { setCurrentPage(page); }

    void showCard(Cards card, bool show);
    void showCard(MenuIndex page, bool show);
    /// Shows those cards of the current page that belong there now, and hides its others.
    void updateCards();
    /// Whether the host wants the screen without that card, or without any card of that page.
    bool isHidden(Cards card) const;
    bool isHidden(MenuIndex page) const;
    /// The card, or null when it was not shown yet.
    QQuickItem *getCardItem(Cards card) const;
    QQuickItem *getCardContainer() const;
    /// The narrow layout's return button, or null when it was not needed yet.
    QQuickItem *returnButton() const;
    QQuickItem *menuBar() const;
    QQuickItem *titleBar() const;
    int titleHeight() const;
    bool shouldMenuFill() const;
    /// Whether opened() was told since the screen is seen.
    bool isOpen() const { return m_isOpen; }

    // How menu, title bar and cards are built, for whoever builds more of them.
    void adjustTitle();
    void adjustMenu();
    QQuickItem *createMenuButton(QQuickItem *parent);
    template <MenuIndex entry> void addMenuButton() { addMenuButton(entry); }
    void addSeparatorLine();
    void highlightMenuButton(MenuIndex page, bool on);
    void addReturnButton();
    template <Cards card> void addCard() { addCard(card); }
    QQuickItem *addCard(QQmlComponent *component);

public slots:
    void close();

signals:
    void currentPageChanged(QSP::AppRootItem::MenuIndex newPage, QSP::AppRootItem::MenuIndex oldPage);
    /// The screen was shown: cards read their state from the service again.
    void opened();
    /// The visit ended, by Exit or by close(). Comes from the event loop when all that led to it is over,
    /// and not at all if the screen was opened again by then: the host may delete the screen at once.
    void closed();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void touchEvent(QTouchEvent *event) override;

private slots:
    void changePage(QSP::AppRootItem::MenuIndex newPage, QSP::AppRootItem::MenuIndex oldPage);
    void showMenu();
    void hideMenu();
    void onWindowAvailable(QQuickWindow *window);
    void end();

private:
    void catchEvents();
    void followVisibility();
    void hide();
    MenuIndex firstPage() const;
    void takeEntry(MenuIndex entry);
    void takeReboot();
    void reboot();
    void returnHighlight();
    void setMenuShown(bool shown);
    void updateTitle();
    void addMenuButton(MenuIndex entry);
    void addCard(Cards card);

    HostOptions m_options;
    FirstIcons m_icons;
    Panel m_panel{this};
    FocusLoan m_focus{this};
    bool m_isFocusDue = false;
    bool m_isOpen = false;
    std::unique_ptr<Menu> m_menu;
    std::unique_ptr<TitleBar> m_titleBar;
    QQuickFlickable *m_cardPool = nullptr;
    MenuIndex m_currentPage = MenuIndex::None;
    std::unique_ptr<CardStack> m_cards;
    std::unique_ptr<RebootDialog> m_rebootDialog;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::AppRootItem)
