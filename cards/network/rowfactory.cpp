#include "cards/network/rowfactory.h"

#include "cards/network/cardnetwork.h"
#include "cards/network/statustext.h"
#include "controls/beepswitch.h"
#include "controls/cipinput.h"
#include "controls/cmacinput.h"
#include "controls/combobox.h"
#include "shell/globalinfo.h"

#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

constexpr int imageSourceSize = 40;

QQuickAnchors *anchorsOf(QQuickItem *item)
{
    return QQuickItemPrivate::get(item)->anchors();
}

void setPixelSize(QQuickText *text, int size)
{
    QFont font = text->font();
    font.setPixelSize(qMax(1, size));
    text->setFont(font);
}

} // namespace

RowFactory::RowFactory(const CardNetwork &card)
    : m_layout(card.layout()), m_rowHeight(card.rowHeight()), m_fontPixelSize(card.fontPixelSize())
{}

QQuickItem *RowFactory::row(double height) const
{
    auto *row = new QQuickItem(m_layout);
    row->setHeight(height * m_rowHeight);
    anchorsOf(row)->setLeft(QQuickItemPrivate::get(m_layout)->left());
    anchorsOf(row)->setRight(QQuickItemPrivate::get(m_layout)->right());
    return row;
}

QQuickItem *RowFactory::labelledRow(const char *source, double height) const
{
    QQuickItem *parent = row(height);
    auto *label = new QQuickText(parent);
    setPixelSize(label, m_fontPixelSize);
    label->setColor(QColor::fromRgba(StatusText::normal));
    anchorsOf(label)->setLeft(QQuickItemPrivate::get(parent)->left());
    anchorsOf(label)->setLeftMargin(m_fontPixelSize);
    anchorsOf(label)->setVerticalCenter(QQuickItemPrivate::get(parent)->verticalCenter());
    setNetworkText(label, source);
    return parent;
}

void RowFactory::placeRight(QQuickItem *item, QQuickItem *row) const
{
    anchorsOf(item)->setRight(QQuickItemPrivate::get(row)->right());
    const int margin = m_rowHeight / 2;
    anchorsOf(item)->setRightMargin(margin);
    anchorsOf(item)->setVerticalCenter(QQuickItemPrivate::get(row)->verticalCenter());
}

BeepSwitch *RowFactory::toggle(QQuickItem *row) const
{
    auto *toggle = new BeepSwitch(row);
    // The width first: the knob is placed when the height changes.
    toggle->setWidth(2.2 * 0.484 * m_rowHeight);
    toggle->setHeight(0.484 * m_rowHeight);
    placeRight(toggle, row);
    return toggle;
}

template <class Field> Field *RowFactory::field(QQuickItem *row) const
{
    Field *field = Field::create(GlobalInfo::instance().qmlEngine(), row);
    if (!field)
        return nullptr;
    field->setSize(QSizeF(7.1 * 0.581 * m_rowHeight, 0.581 * m_rowHeight));
    field->setFontPixelSize(m_fontPixelSize);
    placeRight(field, row);
    return field;
}

CIpInput *RowFactory::address(QQuickItem *row) const
{
    return field<CIpInput>(row);
}

CMacInput *RowFactory::mac(QQuickItem *row) const
{
    return field<CMacInput>(row);
}

QQuickText *RowFactory::text(QQuickItem *row) const
{
    auto *text = new QQuickText(row);
    setPixelSize(text, m_fontPixelSize);
    text->setColor(QColor::fromRgba(StatusText::normal));
    placeRight(text, row);
    return text;
}

QQuickImage *RowFactory::image(QQuickItem *row) const
{
    auto *image = new QQuickImage(row);
    image->setSourceSize({imageSourceSize, imageSourceSize});
    image->setSize(QSizeF(0.6 * m_rowHeight, 0.6 * m_rowHeight));
    placeRight(image, row);
    return image;
}

ComboBox *RowFactory::comboBox(QQuickItem *row) const
{
    auto *box = new ComboBox(row);
    // As wide as the default-adapter list on the card below.
    box->setSize(QSizeF(qRound(2.6 * m_rowHeight), 0.5 * m_rowHeight));
    box->setFontPixelSize(m_fontPixelSize);
    placeRight(box, row);
    return box;
}

} // namespace QSP
