#include "tests/screen/monkeylaps.h"

#include "tests/screen/screenatrest.h"

MonkeyLaps::MonkeyLaps(const QSize &size, bool isChinese, quint32 seed)
    : m_isChinese(isChinese)
    , m_fixture(QStringLiteral(PANEL_PLUGIN), size, compactOptions())
    , m_monkey(&m_fixture, seed)
{}

Inventory MonkeyLaps::run(int actions)
{
    HmiSimulator::reset();
    HmiSimulator::setDelays(20);
    HmiSimulator::setLanguage(m_isChinese ? HMI::SystemSet::CHINESE : HMI::SystemSet::ENGLISH);
    m_fixture.open();
    for (int i = 0; i < actions; ++i)
        m_monkey.act();
    m_monkey.endHosting();
    return inventoryAtRest(m_fixture);
}
