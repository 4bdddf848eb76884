#include "shell/titlebar.h"

#include "controls/beepbutton.h"
#include "shell/barparts.h"
#include "shell/base/globalinfo.h"
#include "shell/menu.h"

#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

TitleBar::TitleBar(QQuickItem *bar, QQuickText *text, Menu *menu, QQuickItem *root)
    : m_bar(bar), m_text(text), m_menu(menu), m_root(root)
{
    connect(m_menu, &Menu::shownWidthChanged, this, &TitleBar::placeTitle);
    m_text->setTextFormat(QQuickText::PlainText);
    connect(m_text, &QQuickItem::widthChanged, this, &TitleBar::placeTitle);
    connect(m_text->parentItem(), &QQuickItem::widthChanged, this, &TitleBar::placeTitle);
}

void TitleBar::adjustTitle()
{
    if (GlobalInfo::instance().isScreenPortrait())
        m_bar->setHeight(m_root->width() < 600.0 ? 56.0 : 72.0);
    else
        followWidth(m_root, this, [this] {
            // As high as what is tapped in it.
            const qreal least = GlobalInfo::instance().isCompact() ? GlobalInfo::leastCompactRow : 0.0;
            m_bar->setHeight(qMax(least, 0.07 * m_root->width()));
        });
    placeTitle();
}

void TitleBar::placeTitle()
{
    const qreal menuWidth = m_menu->shownWidth();
    const qreal room = m_text->parentItem()->width() - menuWidth - m_text->width();
    m_text->setX(menuWidth + room / 2.0);
}

void TitleBar::setTitle(const QString &title)
{
    m_text->setText(title);
}

void TitleBar::setReturnButtonShown(bool shown)
{
    if (shown && !m_returnButton)
        addReturnButton();
    if (m_returnButton)
        m_returnButton->setVisible(shown);
}

void TitleBar::addReturnButton()
{
    m_returnButton = new BeepButton(m_bar);
    m_returnButton->setSize(QSizeF(m_bar->height(), m_bar->height()));
    QQuickImage *arrow = addArrowImage(m_returnButton, "leftArrow0@2x.png");
    QQuickItemPrivate::get(arrow)->anchors()->setCenterIn(m_returnButton);
    m_returnButton->fadeWhilePressed(arrow);
    connect(m_returnButton, &QQuickAbstractButton::clicked, this, &TitleBar::returnTapped);
}

} // namespace QSP
