#pragma once

#include "hmi/systemset.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>

class QSocketNotifier;

namespace HmiLinux {

/// One question to a host over one adapter, as an ordinary user may ask it. Deletes itself once it is answered.
class Ping : public QObject
{
    Q_OBJECT

public:
    using OnOutcome = std::function<void(bool)>;

    /// @p done is called once, from the event loop; not when the object is deleted before.
    Ping(const QString &interface, HMI::IP target, int limit, OnOutcome done, QObject *parent);
    ~Ping() override;

private:
    /// Empty when the socket is ready, else why it is not.
    QString open(const QString &interface);
    void send();
    void receive();
    void end(bool answered);

    int m_socket = -1;
    quint32 m_target;
    quint16 m_sequence = 0;
    OnOutcome m_done;
    QTimer m_again;
    QTimer m_limit;
};

} // namespace HmiLinux
