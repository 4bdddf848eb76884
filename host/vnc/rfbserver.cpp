#include "host/vnc/rfbserver.h"

#include "host/vnc/rfbviewer.h"

RfbServer::RfbServer(QQuickWindow *window) : m_window(window)
{
    connect(&m_server, &QTcpServer::newConnection, this, &RfbServer::welcome);
}

bool RfbServer::listen(quint16 port)
{
    return m_server.listen(QHostAddress::LocalHost, port);
}

void RfbServer::welcome()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        auto *viewer = new RfbViewer(socket, m_window);
        viewer->setParent(this);
        connect(m_window, &QQuickWindow::frameSwapped, viewer, &RfbViewer::pictureChanged);
    }
}
