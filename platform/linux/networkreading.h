#pragma once

#include "linux/interfaces.h"

namespace HmiLinux {

class ObjectMirror;
class ProfileBook;

/// What the daemon says of the panel's adapters, from what is known of it at this moment.
class NetworkReading
{
public:
    NetworkReading(const ObjectMirror &mirror, const ProfileBook &book);

    AdapterState adapter(HMI::SystemSet::NIC nic, const QString &interface) const;
    /// The tunnel whose connection in force is @p active; empty for none.
    AdapterState tunnel(const QString &active) const;

private:
    QString deviceOf(const QString &interface) const;
    void readDevice(AdapterState *state) const;
    QString hardwareAddress(const QString &device) const;
    void readLive(const QString &config, AdapterState *state) const;
    void readWifi(AdapterState *state, const QString &interface) const;
    /// Of the wireless adapter.
    void readDefault(AdapterState *state, const QString &interface) const;
    bool isRadioOn() const;
    ProfileValues valuesOf(const AdapterState &state) const;
    QString pathIn(const QString &object, const QString &interface, const QString &name) const;

    const ObjectMirror &m_mirror;
    const ProfileBook &m_book;
};

} // namespace HmiLinux
