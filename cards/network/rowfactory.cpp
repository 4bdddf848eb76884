#include "cards/network/rowfactory.h"

#include "cards/network/rowsizes.h"
#include "cards/network/statustext.h"
#include "cards/network/wifitile.h"
#include "controls/beepswitch.h"
#include "controls/cipinput.h"
#include "controls/cmacinput.h"
#include "controls/combobox.h"
#include "shell/base/globalinfo.h"
#include "shell/base/palette.h"

#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

constexpr double tileHeight = 41.0 / 31.0;
constexpr int imageSourceSize = 40;

QQuickAnchors *anchorsOf(QQuickItem *item)
{
    return QQuickItemPrivate::get(item)->anchors();
}

} // namespace

template <class Apply> void RowFactory::follow(QQuickItem *item, Apply apply) const
{
    const auto applyNow = [sizes = m_sizes, apply] { apply(sizes->rowHeight(), sizes->fontPixelSize()); };
    applyNow();
    QObject::connect(m_sizes, &RowSizes::changed, item, applyNow);
}

QQuickItem *RowFactory::row(double height) const
{
    auto *row = new QQuickItem(m_column);
    follow(row, [row, height](int rowHeight, int) { row->setHeight(height * rowHeight); });
    anchorsOf(row)->setLeft(QQuickItemPrivate::get(m_column)->left());
    anchorsOf(row)->setRight(QQuickItemPrivate::get(m_column)->right());
    return row;
}

QQuickItem *RowFactory::labelledRow(const char *source, double height) const
{
    QQuickItem *parent = row(height);
    auto *label = new QQuickText(parent);
    label->setColor(Palette::instance().text);
    label->setElideMode(QQuickText::ElideRight);
    anchorsOf(label)->setLeft(QQuickItemPrivate::get(parent)->left());
    anchorsOf(label)->setVerticalCenter(QQuickItemPrivate::get(parent)->verticalCenter());
    follow(label, [label](int, int fontPixelSize) {
        label->setFont(textFont(fontPixelSize));
        anchorsOf(label)->setLeftMargin(fontPixelSize);
    });
    setNetworkText(label, source);
    return parent;
}

WifiTile *RowFactory::wifiTile() const
{
    auto *tile = new WifiTile(m_column);
    anchorsOf(tile)->setLeft(QQuickItemPrivate::get(m_column)->left());
    anchorsOf(tile)->setRight(QQuickItemPrivate::get(m_column)->right());
    follow(tile, [tile](int rowHeight, int fontPixelSize) {
        tile->setSizes(tileHeight * rowHeight, fontPixelSize);
        anchorsOf(tile)->setLeftMargin(fontPixelSize);
        anchorsOf(tile)->setRightMargin(fontPixelSize);
    });
    return tile;
}

void RowFactory::placeRight(QQuickItem *item, QQuickItem *row) const
{
    anchorsOf(item)->setRight(QQuickItemPrivate::get(row)->right());
    anchorsOf(item)->setVerticalCenter(QQuickItemPrivate::get(row)->verticalCenter());
    follow(item, [item](int rowHeight, int) {
        const int margin = rowHeight / 2;
        anchorsOf(item)->setRightMargin(margin);
    });
    if (auto *label = qobject_cast<QQuickText *>(row->childItems().constFirst()); label && label != item)
        anchorsOf(label)->setRight(QQuickItemPrivate::get(item)->left());
}

BeepSwitch *RowFactory::toggle(QQuickItem *row) const
{
    auto *toggle = new BeepSwitch(row);
    follow(toggle, [toggle](int rowHeight, int) {
        // The width first: the knob is placed when the height changes.
        toggle->setWidth(2.2 * 0.484 * rowHeight);
        toggle->setHeight(0.484 * rowHeight);
    });
    placeRight(toggle, row);
    return toggle;
}

template <class Field> Field *RowFactory::field(QQuickItem *row) const
{
    Field *field = Field::create(GlobalInfo::instance().qmlEngine(), row);
    if (!field)
        return nullptr;
    follow(field, [field](int rowHeight, int fontPixelSize) {
        field->setSize(QSizeF(7.1 * 0.581 * rowHeight, 0.581 * rowHeight));
        field->setFontPixelSize(fontPixelSize);
    });
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
    follow(text, [text](int, int fontPixelSize) { text->setFont(textFont(fontPixelSize)); });
    text->setColor(Palette::instance().text);
    placeRight(text, row);
    return text;
}

QQuickImage *RowFactory::image(QQuickItem *row) const
{
    auto *image = new QQuickImage(row);
    image->setSourceSize({imageSourceSize, imageSourceSize});
    follow(image, [image](int rowHeight, int) { image->setSize(QSizeF(0.6 * rowHeight, 0.6 * rowHeight)); });
    placeRight(image, row);
    return image;
}

ComboBox *RowFactory::comboBox(QQuickItem *row) const
{
    auto *box = new ComboBox(row);
    follow(box, [box](int rowHeight, int fontPixelSize) {
        // As wide as the default-adapter list on the card below.
        box->setSize(QSizeF(qRound(2.6 * rowHeight), 0.5 * rowHeight));
        box->setFontPixelSize(fontPixelSize);
    });
    placeRight(box, row);
    return box;
}

} // namespace QSP
