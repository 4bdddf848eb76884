#pragma once

#include "linux/modemstate.h"
#include "linux/objectmirror.h"

namespace HmiLinux {

/// The panel's modem, as ModemManager tells it. While that is away there is none.
class Modem : public QObject
{
    Q_OBJECT

public:
    /// @p interface is a port of the modem, the one of the network or another.
    explicit Modem(QString interface, QObject *parent = nullptr);

    void attach(const QDBusConnection &bus);
    void detach();

    /// The port by which the network's daemon calls the modem; empty while there is none.
    QString port() const;
    ModemState state() const;

signals:
    /// Something of it is otherwise than before.
    void changed();

private:
    void mirrorChanged();
    QString path() const;
    QVariant property(const char *name) const;
    /// What keeps the modem from working that somebody must see to; empty when nothing does.
    QString trouble() const;

    QString m_interface;
    ObjectMirror m_mirror;
    QString m_trouble; ///< as it was told last
};

} // namespace HmiLinux
