#pragma once

#include "panel/panel.h"
#include "shell/base/focusloan.h"

#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/QQuickWindow>

#include <array>

class QQmlComponent;
class QQmlEngine;
class QQuickFlickable;
class QQuickText;

namespace QSP {

class BeepButton;

/// The root of the screen: menu, title bar, and the pages of cards.
///
/// Cards are made on the first showing of their page and live as long as the
/// root. Everything runs on the GUI thread.
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

    /// Builds title bar, menu and (unless the menu fills the screen) the General
    /// page. To be called once, after main.qml is complete.
    void init(QQmlEngine *engine);
    void open();

    /// What the cards of this screen show and change.
    Panel &panel() { return m_panel; }

    MenuIndex currentPage() const { return m_currentPage; }
    void setCurrentPage(MenuIndex page);
    template <MenuIndex page> void setCurrentPage() { setCurrentPage(page); }

    void showCard(Cards card, bool show);
    void showCard(MenuIndex page, bool show);
    /// The card, or null when it was not shown yet.
    QQuickItem *getCardItem(Cards card) const { return m_cards[index(card)]; }
    QQuickItem *getCardContainer() const { return m_cardsParent; }
    /// The narrow layout's return button, or null when it was not needed yet.
    QQuickItem *returnButton() const;
    QQuickItem *menuBar() const { return m_menuBar; }
    QQuickItem *titleBar() const { return m_titleBar; }
    int titleHeight() const;
    bool shouldMenuFill() const;

    void adjustTitle();
    void adjustMenu();
    QQuickItem *createMenuButton(QQuickItem *parent);
    template <MenuIndex entry> void addMenuButton();
    void addSeparatorLine();
    void highlightMenuButton(MenuIndex entry, bool on);
    void addReturnButton();
    template <Cards card> void addCard();
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
    static constexpr int menuButtonCount = 6;
    static constexpr int cardCount = 9;

    static constexpr size_t index(Cards card) { return static_cast<size_t>(card); }
    static constexpr size_t index(MenuIndex entry) { return static_cast<size_t>(entry); }

    void catchEvents();
    void followVisibility();
    void hide();
    QString titleOf(MenuIndex page) const;
    bool isMenuShown() const { return m_menuShown; }
    void setMenuShown(bool shown);
    void returnHighlight();
    void updateTitleText();
    void updateTitlePosition();
    void prepareMenuButton(MenuIndex entry, QQuickItem *container);
    void prefetchFirstPage();

    Panel m_panel{this};
    FocusLoan m_focus{this};
    bool m_isFocusDue = false;
    QQuickItem *m_titleBar = nullptr;
    QQuickText *m_titleText = nullptr;
    QQuickText *m_settingsText = nullptr;
    BeepButton *m_returnButton = nullptr;
    QQuickItem *m_bottomContainer = nullptr;
    QQuickFlickable *m_cardPool = nullptr;
    QQuickRectangle *m_menuBar = nullptr;
    QQuickItem *m_menuColumn = nullptr;
    std::array<QQuickItem *, menuButtonCount> m_menuButtons{};
    MenuIndex m_currentPage = MenuIndex::None;
    QQuickItem *m_cardsParent = nullptr;
    std::array<QQuickItem *, cardCount> m_cards{};
    bool m_menuShown = true;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::AppRootItem)
