#pragma once

#include "host/vnc/pixelformat.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtGui/QImage>
#include <QtNetwork/QTcpSocket>
#include <QtQuick/QQuickWindow>

/// One viewer that is connected: speaks the RFB protocol, version 3.3 to 3.8, without a
/// password and with uncompressed pixels, which is the least that every viewer understands.
///
/// Deletes itself when the viewer goes or says what no viewer says.
class RfbViewer : public QObject
{
    Q_OBJECT

public:
    /// Takes @p socket over.
    RfbViewer(QTcpSocket *socket, QQuickWindow *window);

    /// The window was painted.
    void pictureChanged();

private:
    using Step = bool (RfbViewer::*)();

    void receive();
    void leave();
    bool readVersion();
    bool readSecurity();
    bool readShared();
    bool readMessage();

    bool setPixelFormat();
    bool setEncodings();
    bool requestUpdate();
    bool keyEvent();
    bool pointerEvent();
    bool cutText();

    /// Whether @p size bytes have come.
    bool has(int size) const { return m_input.size() >= size; }
    QByteArray take(int size);
    void refuse(const char *reason);
    void greet();
    void sendUpdate();
    QRect changedArea(const QImage &picture) const;

    QTcpSocket *m_socket;
    QPointer<QQuickWindow> m_window;
    QByteArray m_input;
    /// Reads the next thing that the viewer says; false when it has not come whole.
    Step m_step = &RfbViewer::readVersion;
    bool m_isNewerProtocol = false;
    PixelFormat m_format;
    QImage m_sent;
    bool m_isUpdateWanted = false;
    bool m_isClosing = false;
    quint64 m_bytesToSkip = 0;
    Qt::MouseButtons m_buttons;
    QPoint m_position;
    Qt::KeyboardModifiers m_modifiers;
};
