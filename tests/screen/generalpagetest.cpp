#include "tests/screen/generalpagetest.h"

void GeneralPageTest::addSizes()
{
    QTest::addColumn<QSize>("size");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes)
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void GeneralPageTest::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void GeneralPageTest::cleanup()
{
    m_fixture.reset();
    endWatch();
}

void GeneralPageTest::build(const QSize &size)
{
    m_fixture = std::make_unique<ScreenFixture>(QStringLiteral(PANEL_PLUGIN), size, compactOptions());
    QVERIFY(m_fixture->isBuilt());
    HmiSimulator::setLanguage(HMI::SystemSet::ENGLISH);
    m_fixture->open();
    if (size.width() < 800)
        m_fixture->tapMenu(QStringLiteral("General"));
    QVERIFY(card("QSP::CardBrightness"));
    HmiSimulator::clearJournal();
}

void GeneralPageTest::openEditor() const
{
    Operator::tap(Operator::byClass(card("QSP::CardTime"), "QSP::BeepButton"));
    QVERIFY(field(QStringLiteral("Year")));
}
