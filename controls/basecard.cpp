#include "controls/basecard.h"

#include "shell/base/palette.h"

namespace QSP {

BaseCard::BaseCard(QQuickItem *parent) : QQuickRectangle(parent)
{
    setColor(Palette::instance().surface);
    setHeight(80.0);
    setRadius(10.0);
}

} // namespace QSP
