#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>

#include <memory>

namespace HmiLinux {

class ObjectMirror;

/// One look around of a wireless device. It always ends: with what the daemon says, with its refusal, or by its limit.
class WifiScan : public QObject
{
    Q_OBJECT

public:
    explicit WifiScan(const ObjectMirror *mirror, QObject *parent = nullptr);

    void start(const QDBusConnection &bus, const QString &device);
    /// Ends without a signal.
    void cancel();
    bool isRunning() const { return m_limit.isActive() || m_settle.isActive(); }
    /// Something that the daemon says is otherwise than before.
    void mirrorChanged();

signals:
    /// @p heard tells whether the device has looked around for it; what it heard before is known in any case.
    void ended(bool heard);

private:
    qlonglong lastScan() const;

    const ObjectMirror *m_mirror;
    QString m_device;
    qlonglong m_before = 0;
    bool m_heard = false;
    QTimer m_limit;
    QTimer m_settle;                    ///< for what is told together with the end
    std::unique_ptr<QObject> m_request; ///< the answer dies with it
};

} // namespace HmiLinux
