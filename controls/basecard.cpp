#include "controls/basecard.h"

namespace QSP {

BaseCard::BaseCard(QQuickItem *parent) : QQuickRectangle(parent)
{
    setColor(Qt::white);
    setHeight(80.0);
    setRadius(10.0);
}

} // namespace QSP
