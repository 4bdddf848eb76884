// The menu and the title bar of the root.

#include "shell/approotitem.h"

#include "controls/beepbutton.h"
#include "hmi/systemset.h"
#include "meyersingleton.h"
#include "shell/base/embeddedcomponent.h"
#include "shell/base/globalinfo.h"
#include "shell/base/multilingualtext.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickflickable_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquicktext_p.h>

#include <utility>

namespace QSP {

namespace {

constexpr int arrowSourceSize = 64;

// Normal and highlighted icon of each page's button.
constexpr std::array<std::pair<const char *, const char *>, 7> g_buttonsInfo = {{
    {"newsetting.png", "newsetting.png"},
    {"newnetwork.png", "newnetwork.png"},
    {"newlanguage.png", "newlanguage.png"},
    {"newversion.png", "newversion.png"},
    {"newrestart.png", "newrestart.png"},
    {"newexit.png", "newexit.png"},
    {nullptr, nullptr},
}};

const char *getMenuTitleRuntime(AppRootItem::MenuIndex page)
{
    using Page = AppRootItem::MenuIndex;
    switch (page) {
    case Page::General:
        return QT_TRANSLATE_NOOP("QSP::AppRootItem", "General");
    case Page::Network:
        return QT_TRANSLATE_NOOP("QSP::AppRootItem", "Network");
    case Page::Language:
        return QT_TRANSLATE_NOOP("QSP::AppRootItem", "Language");
    case Page::Version:
        return QT_TRANSLATE_NOOP("QSP::AppRootItem", "Version");
    case Page::Reboot:
        return QT_TRANSLATE_NOOP("QSP::AppRootItem", "Reboot");
    case Page::Exit:
        return QT_TRANSLATE_NOOP("QSP::AppRootItem", "Exit");
    case Page::Wifi:
        return QT_TRANSLATE_NOOP("QSP::AppRootItem", "Wi-Fi");
    case Page::None:
        break;
    }
    return "";
}

QUrl iconUrl(const char *name)
{
    return QUrl(QLatin1String("qrc:/setting/icons/") + QLatin1String(name));
}

QQuickImage *addImage(QQuickItem *parent, const char *icon)
{
    auto *image = new QQuickImage(parent);
    image->setSourceSize({arrowSourceSize, arrowSourceSize});
    image->setSource(iconUrl(icon));
    return image;
}

qreal buttonHeight(const QQuickItem *container)
{
    return container->width() *
           (GlobalInfo::instance().isMenuFill() ? 0.13333333333333333 : 0.2571428571428571);
}

qreal buttonMargin(const QQuickItem *container)
{
    return container->width() * (GlobalInfo::instance().isMenuFill() ? 0.025 : 0.05714285714285714);
}

bool isNarrowPortrait()
{
    const GlobalInfo &info = GlobalInfo::instance();
    return info.isScreenPortrait() && info.isMenuFill();
}

// Runs update now and whenever the width of item changes.
template <class Update> void followWidth(QQuickItem *item, QObject *context, Update update)
{
    update();
    QObject::connect(item, &QQuickItem::widthChanged, context, update);
}

} // namespace

QString AppRootItem::titleOf(MenuIndex page) const
{
    const char *title = getMenuTitleRuntime(page);
    return *title ? QCoreApplication::translate("QSP::AppRootItem", title) : QString();
}

int AppRootItem::titleHeight() const
{
    return m_titleBar ? static_cast<int>(m_titleBar->height()) : 0;
}

bool AppRootItem::shouldMenuFill() const
{
    return GlobalInfo::instance().isMenuFill();
}

QQuickItem *AppRootItem::returnButton() const
{
    return m_returnButton;
}

void AppRootItem::adjustTitle()
{
    if (GlobalInfo::instance().isScreenPortrait())
        m_titleBar->setHeight(width() < 600.0 ? 56.0 : 72.0);
    else
        followWidth(this, this, [this] { m_titleBar->setHeight(0.07 * width()); });

    connect(m_menuBar, &QQuickItem::widthChanged, this, &AppRootItem::updateTitlePosition);
    connect(m_titleText, &QQuickItem::widthChanged, this, &AppRootItem::updateTitlePosition);
    connect(m_titleText->parentItem(), &QQuickItem::widthChanged, this, &AppRootItem::updateTitlePosition);
    updateTitlePosition();
}

void AppRootItem::updateTitlePosition()
{
    const qreal menuWidth = isMenuShown() ? m_menuBar->width() : 0.0;
    const qreal room = m_titleText->parentItem()->width() - menuWidth - m_titleText->width();
    m_titleText->setX(menuWidth + room / 2.0);
}

void AppRootItem::updateTitleText()
{
    const bool bareMenu = shouldMenuFill() && isMenuShown();
    m_titleText->setText(bareMenu ? QString() : titleOf(m_currentPage));
}

void AppRootItem::setMenuShown(bool shown)
{
    m_menuShown = shown;
    // The document's own flag: an item of a hidden screen is never visible, yet must be laid out right.
    m_menuBar->setProperty("shown", shown);
    updateTitlePosition();
}

void AppRootItem::adjustMenu()
{
    const bool portrait = GlobalInfo::instance().isScreenPortrait();
    m_menuBar->setColor(isNarrowPortrait() ? QColor(0xF4, 0xF5, 0xF5) : QColor(Qt::white));
    const qreal factor = isNarrowPortrait() ? 1.0 : portrait ? 0.2625 : 0.205078125;
    followWidth(this, this, [this, factor] { m_menuBar->setWidth(factor * width()); });

    addMenuButton<MenuIndex::General>();
    // The buttons have their document now; those of the cards are read while the rest of the menu is built.
    if (!shouldMenuFill())
        prefetchFirstPage();
    addMenuButton<MenuIndex::Network>();
    addMenuButton<MenuIndex::Language>();
    addMenuButton<MenuIndex::Version>();
    addSeparatorLine();
    if (GlobalInfo::instance().isStartedFromVistor())
        addMenuButton<MenuIndex::Exit>();
    else
        addMenuButton<MenuIndex::Reboot>();

    if (shouldMenuFill()) {
        m_cardPool->setVisible(false);
        return;
    }
    m_currentPage = MenuIndex::General;
    highlightMenuButton(MenuIndex::General, true);
    updateTitleText();
}

QQuickItem *AppRootItem::createMenuButton(QQuickItem *parent)
{
    static EmbeddedComponent pComp;
    // Its size before it is completed: a label of another size would load a font for nothing.
    return pComp.create(QUrl(QStringLiteral("qrc:/setting/flatui/MenuButton.qml")), parent, nullptr,
                        [parent](QQuickItem *button) {
                            QQuickAnchors *anchors = QQuickItemPrivate::get(button)->anchors();
                            anchors->setLeft(QQuickItemPrivate::get(parent)->left());
                            anchors->setRight(QQuickItemPrivate::get(parent)->right());
                            followWidth(parent, button, [button, anchors, parent] {
                                button->setHeight(buttonHeight(parent));
                                anchors->setLeftMargin(buttonMargin(parent));
                                anchors->setRightMargin(buttonMargin(parent));
                            });
                        });
}

void AppRootItem::prepareMenuButton(MenuIndex entry, QQuickItem *container)
{
    QQuickItem *item = createMenuButton(container);
    m_menuButtons[index(entry)] = item;
    auto *button = qobject_cast<BeepButton *>(item);
    if (!button)
        return;
    const auto setText = [this, entry, button] { button->setText(titleOf(entry)); };
    setText();
    connect(&GlobalInfo::instance(), &GlobalInfo::localeChanged, button, setText);
    button->setProperty("imgUrl", iconUrl(g_buttonsInfo[index(entry)].first));
}

template <AppRootItem::MenuIndex entry> void AppRootItem::addMenuButton()
{
    constexpr bool atBottom = entry == MenuIndex::Reboot || entry == MenuIndex::Exit;
    QQuickItem *container = atBottom ? m_bottomContainer : m_menuColumn;
    prepareMenuButton(entry, container);
    auto *button = qobject_cast<BeepButton *>(m_menuButtons[index(entry)]);
    if (!button)
        return;

    if constexpr (atBottom) {
        QQuickItemPrivate::get(button)->anchors()->setVerticalCenter(
            QQuickItemPrivate::get(container)->verticalCenter());
        connect(button, &QQuickAbstractButton::clicked, this, [this] {
            if (entry == MenuIndex::Reboot && m_currentPage != entry)
                highlightMenuButton(m_currentPage, false);
            highlightMenuButton(entry, true);
            if (entry == MenuIndex::Reboot)
                MeyerSingleton<HMI::SystemSet>::instance().reboot();
            else
                close();
        });
    } else {
        connect(button, &QQuickAbstractButton::clicked, this, &AppRootItem::setCurrentPage<entry>);
        if (!shouldMenuFill())
            return;
        connect(button, &QQuickAbstractButton::clicked, this, &AppRootItem::hideMenu);
        QQuickImage *arrow = addImage(button, "rightArrow0@2x.png");
        QQuickAnchors *anchors = QQuickItemPrivate::get(arrow)->anchors();
        anchors->setVerticalCenter(QQuickItemPrivate::get(button)->verticalCenter());
        anchors->setRight(QQuickItemPrivate::get(button)->right());
        anchors->setRightMargin(32.0);
        const auto resize = [button, arrow] { arrow->setSize(QSizeF(1.0, 1.0) * (0.4 * button->height())); };
        resize();
        connect(button, &QQuickItem::heightChanged, arrow, resize);
    }
}

void AppRootItem::addSeparatorLine()
{
    auto *line = new QQuickRectangle(m_menuColumn);
    line->setColor(QColor(0xF4, 0xF5, 0xF5));
    line->setHeight(1.0);
    followWidth(m_menuColumn, line, [this, line] {
        const qreal margin = buttonMargin(m_menuColumn);
        line->setX(margin);
        line->setWidth(m_menuColumn->width() - 2.0 * margin);
    });
}

void AppRootItem::highlightMenuButton(MenuIndex entry, bool on)
{
    if (entry == MenuIndex::None)
        return;
    if (entry == MenuIndex::Wifi)
        entry = MenuIndex::Network;
    auto *button = qobject_cast<BeepButton *>(m_menuButtons[index(entry)]);
    if (!button)
        return;
    if (auto *background = qobject_cast<QQuickRectangle *>(button->background())) {
        background->border()->setWidth(0.0);
        const bool marked = on && !isNarrowPortrait();
        background->setColor(marked ? QColor(0xF2, 0xF3, 0xF5) : QColor(Qt::white));
    }
    const auto &icons = g_buttonsInfo[index(entry)];
    button->setProperty("imgUrl", iconUrl(on ? icons.second : icons.first));
}

// Reboot takes the highlight from the current page, and has it until the operator goes on.
void AppRootItem::returnHighlight()
{
    highlightMenuButton(MenuIndex::Reboot, false);
    highlightMenuButton(m_currentPage, true);
}

void AppRootItem::hideMenu()
{
    setMenuShown(false);
    if (!m_returnButton)
        addReturnButton();
    m_returnButton->setVisible(true);
    if (shouldMenuFill())
        m_cardPool->setVisible(true);
    updateTitleText();
}

void AppRootItem::showMenu()
{
    setMenuShown(true);
    if (m_returnButton)
        m_returnButton->setVisible(false);
    if (shouldMenuFill())
        m_cardPool->setVisible(false);
    updateTitleText();
}

void AppRootItem::addReturnButton()
{
    m_returnButton = new BeepButton(m_titleBar);
    m_returnButton->setSize(QSizeF(m_titleBar->height(), m_titleBar->height()));
    QQuickImage *arrow = addImage(m_returnButton, "leftArrow0@2x.png");
    QQuickItemPrivate::get(arrow)->anchors()->setCenterIn(m_returnButton);
    m_returnButton->fadeWhilePressed(arrow);
    connect(m_returnButton, &QQuickAbstractButton::clicked, this, &AppRootItem::showMenu);
}

} // namespace QSP
