#include "shell/base/screenroot.h"

#include <QtCore/QPointer>

namespace QSP {

namespace {

struct Root {
    QPointer<QQuickItem> item;
    QPointer<QQuickItem> cardColumn;
};

Root &root()
{
    static Root newest;
    return newest;
}

} // namespace

QQuickItem *ScreenRoot::item()
{
    return root().item;
}

QQuickItem *ScreenRoot::cardColumn()
{
    return root().cardColumn;
}

void ScreenRoot::setItem(QQuickItem *item)
{
    root().item = item;
}

void ScreenRoot::setCardColumn(QQuickItem *column)
{
    root().cardColumn = column;
}

} // namespace QSP
