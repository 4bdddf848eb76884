#include "shell/menu.h"

#include "controls/beepbutton.h"
#include "shell/barparts.h"
#include "shell/base/documentalias.h"
#include "shell/base/embeddedcomponent.h"
#include "shell/base/globalinfo.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/palette.h"
#include "shell/pagetable.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

qreal buttonHeight(const QQuickItem *container)
{
    const GlobalInfo &info = GlobalInfo::instance();
    // The height is what is scarce there: two rows of entries and the one at the bottom, down to 272 pixels.
    if (info.isCompact())
        return qBound<qreal>(GlobalInfo::leastCompactRow, 0.22 * info.screenSize().height(), 72.0);
    return container->width() * (info.isMenuFill() ? 0.13333333333333333 : 0.2571428571428571);
}

qreal buttonMargin(const QQuickItem *container)
{
    const GlobalInfo &info = GlobalInfo::instance();
    // Of half a row as of a whole one, so that they end alike.
    if (info.isCompact())
        return 8.0;
    return container->width() * (info.isMenuFill() ? 0.025 : 0.05714285714285714);
}

} // namespace

Menu::Menu(QQuickRectangle *bar, QQuickText *caption, QQuickItem *root)
    : m_bar(bar)
    , m_column(aliasOf<QQuickItem>(bar, "column"))
    , m_bottomContainer(aliasOf<QQuickItem>(bar, "bottomContainer"))
    , m_root(root)
    , m_isNarrow(GlobalInfo::instance().isNarrow())
    , m_isCompact(GlobalInfo::instance().isCompact())
{
    setMultilingualText(caption, [] { return QCoreApplication::translate("QSP::AppRootItem", "Settings"); });
    connect(m_bar, &QQuickItem::widthChanged, this, &Menu::shownWidthChanged);
}

QQuickItem *Menu::bar() const
{
    return m_bar;
}

qreal Menu::shownWidth() const
{
    return m_isShown ? m_bar->width() : 0.0;
}

void Menu::setShown(bool shown)
{
    m_isShown = shown;
    // The document's own flag: an item of a hidden screen is never visible, yet must be laid out right.
    m_bar->setProperty("shown", shown);
    emit shownWidthChanged();
}

void Menu::build(const std::function<bool(Entry)> &isMissing)
{
    const GlobalInfo &info = GlobalInfo::instance();
    m_bar->setColor(m_isNarrow ? Palette::instance().background : Palette::instance().surface);
    const qreal factor = m_isNarrow ? 1.0 : info.isScreenPortrait() ? 0.2625 : 0.205078125;
    followWidth(m_root, this, [this, factor] { m_bar->setWidth(factor * m_root->width()); });

    for (const PageRow &row : g_buttonsInfo) {
        if (row.button == PageRow::Button::InColumn && !isMissing(row.page))
            addMenuButton(row.page);
    }
    addSeparatorLine();
    addMenuButton(info.isStartedFromVistor() ? Entry::Exit : Entry::Reboot);
}

QQuickItem *Menu::createMenuButton(QQuickItem *parent)
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

void Menu::addMenuButton(Entry entry)
{
    const PageRow *row = pageRow(entry);
    if (!row || row->button == PageRow::Button::None)
        return;
    const bool isPage = row->button == PageRow::Button::InColumn;
    QQuickItem *container = m_bottomContainer;
    if (isPage)
        container = m_isCompact ? addCell() : m_column;
    auto *button = qobject_cast<BeepButton *>(createMenuButton(container));
    if (!button)
        return;
    m_buttons[entry] = button;

    const auto setText = [button, entry] { button->setText(pageTitle(entry)); };
    setText();
    followLanguage(button, setText);
    button->setProperty("imgUrl", iconUrl(row->icons.normal));
    connect(button, &QQuickAbstractButton::clicked, this, [this, entry] { emit tapped(entry); });
    if (!isPage)
        QQuickItemPrivate::get(button)->anchors()->setVerticalCenter(
            QQuickItemPrivate::get(container)->verticalCenter());
    else if (GlobalInfo::instance().isMenuFill())
        addArrow(button);
}

// Where the screen is wider than high two entries stand side by side.
QQuickItem *Menu::addCell()
{
    const bool isLeft = !m_halfRow;
    QQuickItem *row = isLeft ? new QQuickItem(m_column) : m_halfRow;
    m_halfRow = isLeft ? row : nullptr;
    auto *cell = new QQuickItem(row);
    followWidth(m_column, cell, [column = m_column, row, cell, isLeft] {
        row->setSize({column->width(), buttonHeight(column)});
        cell->setX(isLeft ? 0.0 : column->width() / 2.0);
        cell->setSize({column->width() / 2.0, row->height()});
    });
    return cell;
}

void Menu::addArrow(QQuickItem *button)
{
    QQuickImage *arrow = addArrowImage(button, "rightArrow0@2x.png");
    QQuickAnchors *anchors = QQuickItemPrivate::get(arrow)->anchors();
    anchors->setVerticalCenter(QQuickItemPrivate::get(button)->verticalCenter());
    anchors->setRight(QQuickItemPrivate::get(button)->right());
    anchors->setRightMargin(32.0);
    const auto resize = [button, arrow] { arrow->setSize(QSizeF(1.0, 1.0) * (0.4 * button->height())); };
    resize();
    connect(button, &QQuickItem::heightChanged, arrow, resize);
}

void Menu::addSeparatorLine()
{
    auto *line = new QQuickRectangle(m_column);
    line->setColor(Palette::instance().background);
    line->setHeight(1.0);
    followWidth(m_column, line, [column = m_column, line] {
        const qreal margin = buttonMargin(column);
        line->setX(margin);
        line->setWidth(column->width() - 2.0 * margin);
    });
}

void Menu::highlightMenuButton(Entry page, bool on)
{
    const PageRow *shown = pageRow(page);
    const PageRow *row = shown ? pageRow(shown->marked) : nullptr;
    if (!row)
        return;
    const auto found = m_buttons.find(row->page);
    if (found == m_buttons.end())
        return;
    BeepButton *button = found->second;
    if (auto *background = qobject_cast<QQuickRectangle *>(button->background())) {
        background->border()->setWidth(0.0);
        const bool marked = on && !m_isNarrow;
        background->setColor(marked ? Palette::instance().markedSurface : Palette::instance().surface);
    }
    button->setProperty("imgUrl", iconUrl(on ? row->icons.highlighted : row->icons.normal));
}

} // namespace QSP
