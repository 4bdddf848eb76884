#pragma once

#include <QtCore/QObject>

class QQuickItem;
class QQuickText;

namespace QSP {

class Dialog;
class OutcomeMark;

/// Tells the operator how a ping test ended.
class PingDialog : public QObject
{
    Q_OBJECT

public:
    /// A dialog in the middle of @p root, also after that was resized; lives as long as @p parent.
    PingDialog(QQuickItem *root, QObject *parent);

    void show(bool success);

private:
    void translateTitle();
    void place();
    void placeMark();

    QQuickItem *m_root;
    Dialog *m_dialog;
    QQuickText *m_text;
    OutcomeMark *m_mark;
};

} // namespace QSP
