#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>

#include <memory>

namespace HmiLinux {

/// Putting a profile in force on a device, until it is or has failed.
///
/// The states of the device tell: those of the activation itself say only that it ended. What the device says before
/// it prepares anew belongs to the activation before.
class Activation : public QObject
{
    Q_OBJECT

public:
    explicit Activation(QObject *parent = nullptr);

    /// Starts, in place of what is under way, which does not end any more.
    void start(const QDBusConnection &bus, const QString &profile, const QString &device);
    void cancel();
    bool isRunning() const { return m_limit.isActive(); }
    QString device() const { return m_device; }
    /// Whether it ended because the cable went.
    bool wasUnplugged() const { return m_wasUnplugged; }
    void deviceChanged(uint state, uint reason);

signals:
    /// @p why is empty when the profile is in force.
    void ended(const QString &why);

private:
    void end(const QString &why);

    QString m_device;
    QTimer m_limit;
    std::unique_ptr<QObject> m_request; ///< the answer dies with it
    bool m_prepared = false;
    bool m_wasUnplugged = false;
};

} // namespace HmiLinux
