#include "shell/screenroot.h"

#include <QtCore/QPointer>

namespace QSP {

namespace {

QPointer<QQuickItem> g_item;
QPointer<QQuickItem> g_cardColumn;

} // namespace

QQuickItem *ScreenRoot::item()
{
    return g_item;
}

QQuickItem *ScreenRoot::cardColumn()
{
    return g_cardColumn;
}

void ScreenRoot::setItem(QQuickItem *root)
{
    g_item = root;
}

void ScreenRoot::setCardColumn(QQuickItem *column)
{
    g_cardColumn = column;
}

} // namespace QSP
