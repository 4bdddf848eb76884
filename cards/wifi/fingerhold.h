#pragma once

#include "cards/wifi/fingerwatch.h"

#include <QtCore/QMap>

#include <functional>

namespace QSP {

/// Holds back what would move things under a finger that is down, until it is lifted.
class FingerHold : public QObject
{
    Q_OBJECT

public:
    /// What is held back, in the order in which it is made up for.
    enum class What { List, Link };

    explicit FingerHold(QObject *parent);

    void setWindow(QQuickWindow *window) { m_finger.setWindow(window); }
    /// Takes the finger for lifted.
    void forget() { m_finger.forget(); }

    /// Does @p work at once, or when the finger is lifted, in place of what waits as the same.
    void run(What what, const std::function<void()> &work);
    /// Forgets what waits.
    void drop(What what) { m_held.remove(what); }

private:
    void onLifted();

    FingerWatch m_finger;
    QMap<What, std::function<void()>> m_held;
};

} // namespace QSP
