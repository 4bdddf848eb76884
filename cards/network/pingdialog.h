#pragma once

#include <QtCore/QObject>

class QQuickItem;
class QQuickText;

namespace QSP {

class Dialog;

/// Tells the operator how a ping test ended.
class PingDialog : public QObject
{
    Q_OBJECT

public:
    /// A dialog in the middle of @p root; lives as long as @p parent.
    PingDialog(QQuickItem *root, QObject *parent);

    void show(bool success);

private:
    void translateTitle();

    Dialog *m_dialog;
    QQuickText *m_text;
};

} // namespace QSP
