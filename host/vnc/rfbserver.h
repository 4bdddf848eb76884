#pragma once

#include <QtNetwork/QTcpServer>
#include <QtQuick/QQuickWindow>

/// Shows a window to VNC viewers on this machine, and lets them operate it.
///
/// Listens on the loopback address alone, since there is no password: whoever
/// wants to look from elsewhere comes through a tunnel that knows who he is.
class RfbServer : public QObject
{
    Q_OBJECT

public:
    explicit RfbServer(QQuickWindow *window);

    /// Port 0 is any free one. False, with errorString(), when the port cannot be had.
    bool listen(quint16 port);
    QString errorString() const { return m_server.errorString(); }
    quint16 port() const { return m_server.serverPort(); }

private:
    void welcome();

    QTcpServer m_server;
    QQuickWindow *m_window;
};
