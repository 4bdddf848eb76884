#include "cards/wifi/fingerhold.h"

#include <utility>

namespace QSP {

FingerHold::FingerHold(QObject *parent) : QObject(parent)
{
    connect(&m_finger, &FingerWatch::lifted, this, &FingerHold::onLifted);
}

void FingerHold::run(What what, const std::function<void()> &work)
{
    if (m_finger.isDown())
        m_held.insert(what, work);
    else
        work();
}

void FingerHold::onLifted()
{
    // Put down again before this was delivered; another lifting follows.
    if (m_finger.isDown())
        return;
    const auto held = std::exchange(m_held, {});
    for (const std::function<void()> &work : held)
        work();
}

} // namespace QSP
