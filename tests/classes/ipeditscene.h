#pragma once

#include "tests/classes/addressscene.h"

/// An input on a real screen that shows an address, and counts what it reports of its changes from then on.
struct IpEditScene : AddressScene {
    explicit IpEditScene(const QSize &size = {1024, 600}) : AddressScene(size), ip(addIp(40))
    {
        ip->setIp(QStringLiteral("10.20.30.40"));
        changed.clear();
    }

    using AddressScene::box;
    using AddressScene::enter;
    using AddressScene::shown;
    QQuickTextInput *box(int i) const { return box(ip, i); }
    QString shown() const { return shown(ip); }
    void enter(int i, const QString &digits) { enter(ip, i, digits); }

    QSP::CIpInput *const ip;
    QSignalSpy changed{ip, &QSP::CIpInput::ipChanged};
    QSignalSpy edited{ip, &QSP::CIpInput::ipChangedByEdit};
};
