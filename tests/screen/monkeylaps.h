#pragma once

#include "tests/screen/monkey.h"
#include "tests/support/inventory.h"

/// A monkey that operates one host, lap after lap; after each the screen is brought to rest and counted.
class MonkeyLaps
{
public:
    MonkeyLaps(const QSize &size, bool isChinese, quint32 seed);

    /// So many actions, and what the program holds then.
    Inventory run(int actions);

private:
    bool m_isChinese;
    ScreenFixture m_fixture;
    Monkey m_monkey;
};
