#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQuickWindow>

/// Sends keys to the item that has the active focus in a window, as a keyboard with keys does.
class KeySender : public QObject
{
    Q_OBJECT

public:
    explicit KeySender(QQuickWindow *window) : QObject(window), m_window(window) {}

    Q_INVOKABLE void strike(int key, const QString &text, bool isRepeat)
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, text, isRepeat);
            QCoreApplication::sendEvent(m_window, &event);
        }
    }

private:
    QQuickWindow *m_window;
};
