#pragma once

#include "tests/screen/fingers.h"
#include "tests/screen/screenfixture.h"

#include "simulator/simulator.h"

/// Fingers that know nothing, on a panel that misbehaves and in a host that does what it likes: they tap, touch and type
/// anywhere, open and close; reports come never, twice, at once; the host resizes the screen, takes it out of its window,
/// deletes it and builds it anew. The same seed does the same.
class Monkey
{
public:
    Monkey(ScreenFixture *fixture, quint32 seed)
        : m_fixture(fixture), m_size(fixture->window()->size()), m_fingers(seed)
    {}

    /// Does one thing, whatever comes to its mind.
    void act();
    /// Leaves the host as it was found, with the screen in a window of its size.
    void endHosting();

private:
    void touch();
    void host();
    void resizeTo(const QSize &size);
    void misbehave();
    void change(HmiSimulator::Panel &panel, int what);

    ScreenFixture *m_fixture;
    QSize m_size;
    Fingers m_fingers;
};
