#include "host/vnc/rfbviewer.h"

#include "host/glass/glass.h"
#include "host/vnc/keysym.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <array>

namespace {

constexpr int versionSize = 12;
constexpr char securityNone = 1;

enum MessageType : quint8 {
    SetPixelFormat = 0,
    SetEncodings = 2,
    FramebufferUpdateRequest = 3,
    KeyEvent = 4,
    PointerEvent = 5,
    ClientCutText = 6,
};

template <class Number> void append(QByteArray *out, Number number)
{
    std::array<char, sizeof(Number)> bytes{};
    qToBigEndian(number, bytes.data());
    out->append(bytes.data(), static_cast<int>(bytes.size()));
}

template <class Number> Number numberAt(const QByteArray &bytes, int position)
{
    return qFromBigEndian<Number>(bytes.constData() + position);
}

} // namespace

RfbViewer::RfbViewer(QTcpSocket *socket, QQuickWindow *window) : m_socket(socket), m_window(window)
{
    socket->setParent(this);
    connect(socket, &QTcpSocket::readyRead, this, &RfbViewer::receive);
    connect(socket, &QTcpSocket::bytesWritten, this, &RfbViewer::pictureChanged);
    connect(socket, &QTcpSocket::disconnected, this, &RfbViewer::leave);
    socket->write("RFB 003.008\n");
}

void RfbViewer::leave()
{
    // The finger of a viewer that has gone must not stay on the glass.
    if (m_buttons && m_window)
        Glass::pointer(m_window, m_position, Qt::NoButton, Qt::LeftButton);
    m_buttons = Qt::NoButton;
    deleteLater();
}

void RfbViewer::receive()
{
    if (m_isClosing || !m_window) {
        m_socket->readAll();
        return;
    }
    m_input += m_socket->readAll();
    while (!m_isClosing && (this->*m_step)()) {
    }
}

QByteArray RfbViewer::take(int size)
{
    QByteArray taken = m_input.left(size);
    m_input.remove(0, size);
    return taken;
}

void RfbViewer::refuse(const char *reason)
{
    qInfo("VNC viewer sent away: %s", reason);
    m_isClosing = true;
    m_input.clear();
    m_socket->disconnectFromHost();
}

bool RfbViewer::readVersion()
{
    if (!has(versionSize)) {
        // Tells a browser or a scanner from a viewer as early as can be.
        if (!QByteArray("RFB 003.").startsWith(m_input.left(8)))
            refuse("it does not speak the protocol");
        return false;
    }
    const QByteArray version = take(versionSize);
    if (!version.startsWith("RFB 003.") || !version.endsWith('\n')) {
        refuse("it does not speak the protocol");
        return false;
    }
    const int minor = version.mid(8, 3).toInt();
    m_isNewerProtocol = minor >= 8;
    if (minor >= 7) {
        m_socket->write(QByteArray{"\x01\x01", 2});
        m_step = &RfbViewer::readSecurity;
    } else {
        QByteArray security;
        append<quint32>(&security, securityNone);
        m_socket->write(security);
        m_step = &RfbViewer::readShared;
    }
    return true;
}

bool RfbViewer::readSecurity()
{
    if (!has(1))
        return false;
    if (take(1).at(0) != securityNone) {
        refuse("it wants a kind of security that was not offered");
        return false;
    }
    if (m_isNewerProtocol) {
        QByteArray accepted;
        append<quint32>(&accepted, 0);
        m_socket->write(accepted);
    }
    m_step = &RfbViewer::readShared;
    return true;
}

bool RfbViewer::readShared()
{
    if (!has(1))
        return false;
    take(1);
    greet();
    m_step = &RfbViewer::readMessage;
    return true;
}

void RfbViewer::greet()
{
    const QByteArray name = m_window->title().toUtf8();
    QByteArray greeting;
    append(&greeting, static_cast<quint16>(m_window->width()));
    append(&greeting, static_cast<quint16>(m_window->height()));
    greeting += m_format.toWire();
    append(&greeting, static_cast<quint32>(name.size()));
    greeting += name;
    m_socket->write(greeting);
}

bool RfbViewer::readMessage()
{
    if (m_bytesToSkip > 0) {
        const int size = static_cast<int>(qMin<quint64>(m_bytesToSkip, static_cast<quint64>(m_input.size())));
        m_bytesToSkip -= static_cast<quint64>(size);
        take(size);
    }
    if (m_bytesToSkip > 0 || !has(1))
        return false;
    switch (static_cast<quint8>(m_input.at(0))) {
    case SetPixelFormat:
        return setPixelFormat();
    case SetEncodings:
        return setEncodings();
    case FramebufferUpdateRequest:
        return requestUpdate();
    case KeyEvent:
        return keyEvent();
    case PointerEvent:
        return pointerEvent();
    case ClientCutText:
        return cutText();
    default:
        refuse("it sent a message that is not known");
        return false;
    }
}

bool RfbViewer::setPixelFormat()
{
    constexpr int size = 4 + PixelFormat::wireSize;
    if (!has(size))
        return false;
    const PixelFormat format = PixelFormat::fromWire(take(size).constData() + 4);
    if (!format.isServable()) {
        refuse("it wants pixels without true colour");
        return false;
    }
    m_format = format;
    m_sent = QImage();
    return true;
}

bool RfbViewer::setEncodings()
{
    constexpr int headSize = 4;
    if (!has(headSize))
        return false;
    // Uncompressed pixels are always allowed, so what else the viewer knows does not matter.
    const int size = headSize + 4 * numberAt<quint16>(m_input, 2);
    if (!has(size))
        return false;
    take(size);
    return true;
}

bool RfbViewer::requestUpdate()
{
    constexpr int size = 10;
    if (!has(size))
        return false;
    const bool isIncremental = take(size).at(1) != 0;
    if (!isIncremental)
        m_sent = QImage();
    m_isUpdateWanted = true;
    pictureChanged();
    return true;
}

bool RfbViewer::keyEvent()
{
    constexpr int size = 8;
    if (!has(size))
        return false;
    const QByteArray message = take(size);
    const bool isDown = message.at(1) != 0;
    const Key key = Key::fromSymbol(numberAt<quint32>(message, 4));
    if (!key.isKnown())
        return true;
    if (key.modifier != Qt::NoModifier)
        m_modifiers.setFlag(key.modifier, isDown);
    Glass::key(m_window, isDown, key.code, m_modifiers, key.text);
    return true;
}

bool RfbViewer::pointerEvent()
{
    constexpr int size = 6;
    if (!has(size))
        return false;
    const QByteArray message = take(size);
    m_position = QPoint(numberAt<quint16>(message, 2), numberAt<quint16>(message, 4));
    // A finger knows one button only; the wheel and the others are no part of a panel.
    const Qt::MouseButtons buttons = (message.at(1) & 1) ? Qt::LeftButton : Qt::NoButton;
    Glass::pointer(m_window, m_position, buttons, buttons == m_buttons ? Qt::NoButton : Qt::LeftButton);
    m_buttons = buttons;
    return true;
}

bool RfbViewer::cutText()
{
    constexpr int headSize = 8;
    if (!has(headSize))
        return false;
    m_bytesToSkip = numberAt<quint32>(take(headSize), 4);
    return true;
}

void RfbViewer::pictureChanged()
{
    // A viewer that reads slower than the panel paints gets fewer pictures, not a growing queue.
    if (m_isUpdateWanted && !m_isClosing && m_socket->bytesToWrite() == 0)
        sendUpdate();
}

void RfbViewer::sendUpdate()
{
    if (!m_window)
        return;
    const QImage picture = Glass::picture(m_window).convertToFormat(QImage::Format_RGB32);
    const QRect area = changedArea(picture);
    if (area.isEmpty())
        return;
    QByteArray update;
    append<quint8>(&update, 0); // a framebuffer update
    append<quint8>(&update, 0);
    append<quint16>(&update, 1); // of one rectangle
    append(&update, static_cast<quint16>(area.x()));
    append(&update, static_cast<quint16>(area.y()));
    append(&update, static_cast<quint16>(area.width()));
    append(&update, static_cast<quint16>(area.height()));
    append<quint32>(&update, 0); // of uncompressed pixels
    m_format.append(&update, picture, area);
    m_socket->write(update);
    m_sent = picture;
    m_isUpdateWanted = false;
}

QRect RfbViewer::changedArea(const QImage &picture) const
{
    if (m_sent.size() != picture.size())
        return picture.rect();
    QRect area;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *now = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        const auto *before = reinterpret_cast<const QRgb *>(m_sent.constScanLine(y));
        const auto *end = now + picture.width();
        const auto first = std::mismatch(now, end, before);
        if (first.first == end)
            continue;
        int last = picture.width() - 1;
        while (now[last] == before[last])
            --last;
        area |= QRect(QPoint(static_cast<int>(first.first - now), y), QPoint(last, y));
    }
    return area;
}
