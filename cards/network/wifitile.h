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
    explicit WifiTile(QQuickItem *parent);

    /// Sets the height, and all that stands in the tile accordingly.
    void setSizes(qreal height, int fontPixelSize);

    /// There is no Wi-Fi page: the tile tells the state alone, and cannot be tapped.
    void endHere();

    QQuickText *statusText() const { return m_status; }

public slots:
    /// A tile of a disabled adapter is pale, has no arrow and cannot be tapped.
    void setWifiEnabled(bool enabled);

private:
    QQuickImage *m_icon;
    QQuickText *m_status;
    QQuickText *m_hint;
    QQuickImage *m_marker;
    bool m_leadsOn = true;
};

} // namespace QSP
