#include "controls/dialog.h"

#include "controls/beepbutton.h"
#include "controls/popuptie.h"
#include "shell/base/globalinfo.h"
#include "shell/base/palette.h"
#include "shell/base/qmltype.h"

#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

// Parts of the dialog are drawn for a glass 1920 wide; an upright or compact one has sizes of its own.
qreal scaled(qreal landscape, qreal fixed)
{
    const GlobalInfo &info = GlobalInfo::instance();
    return info.hasFixedSizes() ? fixed : info.screenSize().width() / 1920.0 * landscape;
}

template <class T> T *childOf(QQuickItem *parent)
{
    auto *item = new T(parent);
    item->setParent(parent);
    return item;
}

QQuickAnchors *anchorsOf(QQuickItem *item)
{
    return QQuickItemPrivate::get(item)->anchors();
}

} // namespace

Dialog::Dialog(QQuickItem *parent) : QQuickPopup(parent)
{
    setZ(GlobalInfo::instance().rootPopupZ());
    QQuickItem *content = contentItem();

    auto *background = childOf<QQuickRectangle>(content);
    background->setRadius(scaled(15.0, 8.0));
    background->setColor(Palette::instance().surface);
    background->border()->setWidth(1.0);
    background->border()->setColor(Palette::instance().frame);
    background->setZ(-1.0);
    setBackground(background);

    m_titleBar = childOf<QQuickItem>(content);
    m_titleBar->setHeight(scaled(68.0, 36.0));

    m_titleText = childOf<QQuickText>(m_titleBar);
    m_titleText->setColor(Palette::instance().caption);
    // Titles such as names of networks come from outside.
    m_titleText->setTextFormat(QQuickText::PlainText);
    m_titleText->setElideMode(QQuickText::ElideRight);
    anchorsOf(m_titleText)->setVerticalCenter(QQuickItemPrivate::get(m_titleBar)->verticalCenter());
    anchorsOf(m_titleText)->setLeft(QQuickItemPrivate::get(m_titleBar)->left());

    m_separator = childOf<QQuickRectangle>(content);
    // On a whole pixel, with the body below it: a line between two vanishes when only what lies behind
    // the dialog is painted again.
    m_separator->setY(qRound(m_titleBar->height()));
    m_separator->setHeight(1.0);
    m_separator->setColor(Palette::instance().frame);

    connect(content, &QQuickItem::widthChanged, this, &Dialog::relayout);
    tieToParent(this);
}

void Dialog::registerType()
{
    registerQmlType<Dialog>();
}

QString Dialog::title() const
{
    return m_titleText->text();
}

void Dialog::setTitle(const QString &title)
{
    if (title == m_titleText->text())
        return;
    applyTitleFont();
    m_titleText->setText(title);
    emit titleChanged();
}

void Dialog::setEnableCloseButton(bool enable)
{
    if (enable == m_enableCloseButton)
        return;
    if (enable && !m_closeButton)
        createCloseButton();
    m_closeButton->setVisible(enable);
    m_enableCloseButton = enable;
    fitTitleText();
    emit enableCloseButtonChanged();
}

void Dialog::setBodyItem(QQuickItem *body)
{
    if (body == m_bodyItem)
        return;
    m_bodyItem = body;
    if (body) {
        QQuickItem *content = contentItem();
        body->setParent(content);
        body->setParentItem(content);
        body->setX(1.0);
        body->setY(m_separator->y() + 1.0);
        body->setWidth(content->width() - 2.0);
        body->setHeight(content->height() - m_titleBar->height() - 1.0);
    }
    emit bodyItemChanged();
}

int Dialog::titleFontPixelSize() const
{
    return static_cast<int>(m_titleBar->height() * 0.5);
}

void Dialog::applyTitleFont()
{
    m_titleText->setFont(textFont(titleFontPixelSize()));
}

void Dialog::fitTitleText()
{
    const qreal margin = m_titleBar->height() * 0.331;
    const qreal right = m_enableCloseButton ? m_closeButton->width() : margin;
    m_titleText->setWidth(qMax(0.0, m_titleBar->width() - margin - right));
}

void Dialog::relayout()
{
    QQuickItem *content = contentItem();
    const int width = static_cast<int>(content->width());
    m_titleBar->setWidth(width - 2);
    m_separator->setWidth(width);
    anchorsOf(m_titleText)->setLeftMargin(m_titleBar->height() * 0.331);
    fitTitleText();
    if (!m_titleText->text().isEmpty())
        applyTitleFont();
    if (m_bodyItem) {
        m_bodyItem->setWidth(width - 2);
        // Clear of the rounded corners. One that is set into a finished dialog gets all the room instead.
        m_bodyItem->setHeight(content->height() - m_titleBar->height() - 10.0);
    }
}

void Dialog::createCloseButton()
{
    m_closeButton = childOf<BeepButton>(contentItem());
    const qreal size = m_titleBar->height();
    m_closeButton->setWidth(size);
    m_closeButton->setHeight(size);
    anchorsOf(m_closeButton)->setRight(QQuickItemPrivate::get(m_titleBar)->right());

    auto *image = childOf<QQuickImage>(m_closeButton);
    image->setSource(QUrl(QStringLiteral("qrc:/setting/icons/close.png")));
    const int side = static_cast<int>(size * 0.551);
    image->setSourceSize(QSize(side, side));
    anchorsOf(image)->setCenterIn(m_closeButton);
    m_closeButton->fadeWhilePressed(image);

    connect(m_closeButton, &QQuickAbstractButton::clicked, this, &QQuickPopup::close);
}

} // namespace QSP
