#pragma once

#include "controls/beepbutton.h"

class QQuickImage;
class QQuickText;

namespace QSP {

/// The tile in the Wi-Fi rows that tells the state of the link and leads to the Wi-Fi page.
class WifiTile : public BeepButton
{
    Q_OBJECT

public:
    WifiTile(qreal height, int fontPixelSize, QQuickItem *parent);

    QQuickText *statusText() const { return m_status; }

public slots:
    /// A tile of a disabled adapter is pale, has no arrow and cannot be tapped.
    void setWifiEnabled(bool enabled);

private:
    QQuickText *m_status;
    QQuickImage *m_marker;
};

} // namespace QSP
