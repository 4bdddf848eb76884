#pragma once

#include "linux/networkpiece.h"
#include "linux/published.h"
#include "linux/snapshot.h"

#include <QtCore/QObject>

#include <memory>

namespace HmiLinux {

class ObjectMirror;

/// The daemon's switch for all mobile networks, which 4G needs beside its own: who switches 4G on wants both. Nobody
/// else is overruled: it may have been switched off for a reason.
class MobileRadio : public QObject, public NetworkPiece
{
    Q_OBJECT

public:
    MobileRadio(const Published<Snapshot> *state, const ObjectMirror *mirror, QObject *parent = nullptr);

    void attach(const QDBusConnection &bus) override;
    void interrupt() override;
    void published() override;

    /// What the operator wishes of 4G is stored, and still in the snapshot.
    void wishStored();

private:
    bool isOff(const char *name) const;
    void switchOn();
    /// What keeps 4G from working while it is on; empty when nothing does.
    QString trouble() const;

    const Published<Snapshot> *m_state;
    const ObjectMirror *m_mirror;
    QDBusConnection m_bus;
    std::unique_ptr<QObject> m_requests; ///< answers die with it
    bool m_isAsked = false;              ///< to go on, and not seen to be yet
    QString m_trouble;                   ///< as it was told last
};

} // namespace HmiLinux
