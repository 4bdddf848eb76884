#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtGui/QColor>

class QQuickItem;
class QQuickText;

namespace QSP {

class BeepButton;
class Dialog;

/// Asks the operator whether the panel is to restart.
class RebootDialog : public QObject
{
    Q_OBJECT

public:
    /// A dialog in the middle of @p root, also after that was resized.
    explicit RebootDialog(QQuickItem *root);

    /// Shows the question, if it is not shown already. It wants an answer of its own: as long as a tap may be the
    /// second half of a double tap on what led here, the buttons take none.
    void ask();

signals:
    /// The operator said yes; the dialog is closed.
    void confirmed();

private:
    struct Look {
        QColor ground;
        QColor ink;
    };

    BeepButton *addButton(const Look &look, QString (*textOf)());
    void setButtonsEnabled(bool enabled);
    void translateTitle();
    void place();
    void layout();

    QQuickItem *m_root;
    Dialog *m_dialog;
    QQuickItem *m_body;
    QQuickText *m_question;
    BeepButton *m_cancel;
    BeepButton *m_restart;
    QTimer m_doubleTap;
};

} // namespace QSP
