#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>

#include <optional>

namespace HmiLinux {

/// A connection of our own to the message bus, made again whenever the bus has gone.
class Bus : public QObject
{
    Q_OBJECT

public:
    /// @p address is empty for the bus of the system.
    explicit Bus(QString address, QObject *parent = nullptr);
    ~Bus() override;

    /// Connects, now or as soon as there is a bus.
    void open();
    bool isOpen() const { return m_connection.has_value(); }
    /// A connection that is not connected while the bus is away: calls on it fail at once.
    QDBusConnection connection() const;

signals:
    void opened();
    void lost();

private slots:
    void disconnected();

private:
    void close();
    void retry();

    QString m_address;
    QString m_name; ///< of the connection, a new one each time
    std::optional<QDBusConnection> m_connection;
    QTimer m_retry;
    bool m_told = false;
};

} // namespace HmiLinux
