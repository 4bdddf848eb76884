#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

namespace QSP {

/// Ends the editing of a field on the keys that mean "done": the hide key of
/// the on-screen keyboard, Escape, Return and Enter. To be installed as an
/// event filter; the field never sees these keys.
class KeyPressFilter : public QObject
{
    Q_OBJECT

public:
    /// @p target is the item that loses its focus, whatever object the key was
    /// for. It may die before the filter.
    explicit KeyPressFilter(QQuickItem *target, QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QQuickItem> m_target;
};

} // namespace QSP
