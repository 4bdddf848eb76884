#pragma once

#include "tests/screen/screenfixture.h"

#include "simulator/simulator.h"

#include <QtCore/QRandomGenerator>

/// Hands that know nothing, on a panel that misbehaves and in a host that does what it likes: they tap anywhere, press
/// any key, open and close; reports come never, twice, at once; the host resizes the screen, takes it out of its window,
/// deletes it and builds it anew. The same seed does the same.
class Monkey
{
public:
    Monkey(ScreenFixture *fixture, quint32 seed)
        : m_fixture(fixture), m_size(fixture->window()->size()), m_random(seed)
    {}

    /// Does one thing, whatever comes to its mind.
    void act();
    /// Leaves the host as it was found, with the screen in a window of its size.
    void endHosting();

private:
    QPoint anywhere();
    void tapControl();
    void touchAnywhere();
    void pressKeys();
    void host();
    void resizeTo(const QSize &size);
    void misbehave();
    void change(HmiSimulator::Panel &panel, int what);

    ScreenFixture *m_fixture;
    QSize m_size;
    QRandomGenerator m_random;
};
