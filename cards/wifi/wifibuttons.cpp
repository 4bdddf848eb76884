#include "cards/wifi/wifibuttons.h"

#include "controls/beepbutton.h"
#include "shell/approotitem.h"
#include "shell/barparts.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/palette.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

constexpr qreal narrowX = 40.0;
constexpr qreal besideMenu = 20.0;
// It takes the panel off the network: not one to be tapped in passing.
constexpr QColor dangerColor(0xD9, 0x2D, 0x20);

QQuickAnchors *anchorsOf(QQuickItem *item)
{
    return QQuickItemPrivate::get(item)->anchors();
}

} // namespace

BeepButton *addWifiResetButton(QQuickItem *row, int rowHeight, int fontPixelSize)
{
    auto *button = new BeepButton(row);
    const qreal height = rowHeight * 0.75;
    button->setSize(QSizeF(qRound(height * 20.0 / 9.0), qRound(height)));
    anchorsOf(button)->setRight(QQuickItemPrivate::get(row)->right());
    anchorsOf(button)->setVerticalCenter(QQuickItemPrivate::get(row)->verticalCenter());

    auto *background = new QQuickRectangle(button);
    background->setRadius(5.0);
    background->setColor(dangerColor);
    button->setBackground(background);

    auto *text = new QQuickText(button);
    text->setFont(textFont(fontPixelSize * 0.8));
    text->setColor(Qt::white);
    text->setHAlign(QQuickText::AlignHCenter);
    text->setVAlign(QQuickText::AlignVCenter);
    text->setElideMode(QQuickText::ElideRight);
    text->setSize(button->size());
    setMultilingualText(text, [] { return QCoreApplication::translate("CardWifi", "Reset"); });
    return button;
}

BeepButton *addWifiReturnButton(QQuickItem *card)
{
    AppRootItem *root = rootOf(card);
    QQuickItem *titleBar = root ? root->titleBar() : nullptr;
    if (!titleBar)
        return nullptr;
    auto *button = new BeepButton(titleBar);
    button->setParent(card);
    button->fadeWhilePressed(button);

    const auto place = [root, titleBar, button] {
        button->setSize(QSizeF(titleBar->height(), titleBar->height()));
        button->setX(root->shouldMenuFill() ? narrowX : root->menuBar()->width() + besideMenu);
    };
    place();
    QObject::connect(titleBar, &QQuickItem::heightChanged, button, place);
    QObject::connect(root->menuBar(), &QQuickItem::widthChanged, button, place);

    anchorsOf(addArrowImage(button, "leftArrow0@2x.png"))->setCenterIn(button);
    return button;
}

} // namespace QSP
