#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

class QQuickItem;

namespace QSP {

class Dialog;
class WifiPasswordBody;

/// The dialog in which the operator enters the password of a network and sees
/// how joining it goes. It stays clear of the on-screen keyboard and closes
/// only by its button or by its owner; what was typed is gone then.
class WifiPasswordDialog : public QObject
{
    Q_OBJECT

public:
    /// @p card owns the dialog; it appears on the screen of the card.
    WifiPasswordDialog(QQuickItem *card, int fontPixelSize);

    void open(const QString &title);
    void close();
    void setTitle(const QString &title);

    QString password() const;
    void endEditing();
    void setBodyVisible(bool visible);
    bool isBodyVisible() const;
    void setStatus(const char *text, bool error = false);
    QQuickItem *busyPlace() const;

    /// Near the top while the keyboard is shown, else in the middle.
    void adjust();

signals:
    /// "Connect" was tapped.
    void confirmed();

private:
    qreal yBesideKeyboard() const;

    QPointer<QQuickItem> m_root;
    QPointer<Dialog> m_dialog;
    QPointer<WifiPasswordBody> m_body;
};

} // namespace QSP
