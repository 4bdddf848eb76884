#pragma once

#include "panel/wifilink.h"

namespace QSP {

/// The panel as one screen sees it: what the service says and what the operator chose, without any item.
///
/// Every screen has one of its own, see panelOf(). Cards show it and tell it what the operator did; they know
/// of each other only through it. GUI thread only.
class Panel : public QObject
{
    Q_OBJECT

public:
    explicit Panel(QObject *parent = nullptr);

    WifiLink &wifi() { return m_wifi; }

private:
    WifiLink m_wifi;
};

} // namespace QSP
