#include "panel/panel.h"

namespace QSP {

Panel::Panel(QObject *parent) : QObject(parent) {}

} // namespace QSP
