#include "tests/screen/screenfixture.h"
#include "tests/support/layoutcheck.h"

#include "simulator/simulator.h"

#include <QtGui/QGuiApplication>

/// No text of any page, at any size, in either language, is cut off or in another's way.
/// The pictures of the walk stay in the build directory, for people to look at.
class TestLayout : public PanelTest
{
    Q_OBJECT

private slots:
    void everyTextHasItsRoom_data();
    void everyTextHasItsRoom();
};

void TestLayout::everyTextHasItsRoom_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("chinese");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes) {
        const QByteArray name = QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height());
        QTest::newRow(name + "-en") << size << false;
        QTest::newRow(name + "-zh") << size << true;
    }
}

void TestLayout::everyTextHasItsRoom()
{
    QFETCH(QSize, size);
    QFETCH(bool, chinese);
    HmiSimulator::reset();
    ScreenFixture fixture(QStringLiteral(PANEL_PLUGIN), size, compactOptions());
    const QDir pictures(
        QDir::current().filePath(QStringLiteral("pictures/") + QString::fromLatin1(QTest::currentDataTag())));
    QVERIFY(pictures.mkpath(QStringLiteral(".")));
    HmiSimulator::setLanguage(chinese ? HMI::SystemSet::CHINESE : HMI::SystemSet::ENGLISH);
    fixture.open();

    int number = 0;
    const auto look = [&](const char *state) {
        Operator::settle(30);
        const QString name =
            QStringLiteral("%1-%2.png").arg(++number, 2, 10, QLatin1Char('0')).arg(QLatin1String(state));
        QVERIFY(Operator::picture(fixture.window()).save(pictures.filePath(name)));
        const QStringList faults = LayoutCheck::faults(fixture.glass());
        if (!faults.isEmpty())
            QTest::qFail(qPrintable(name + QStringLiteral(": ") + faults.join(QStringLiteral("\n  "))),
                         __FILE__, __LINE__);
    };
    look("start");
    auto *menu = fixture.root()->property("menuBar").value<QQuickItem *>();
    auto *titleBar = fixture.root()->property("titleBar").value<QQuickItem *>();
    const bool narrow = size.width() < 800;
    for (int entry = 0; entry < 4; ++entry) {
        static const char *const names[] = {"general", "network", "language", "version"};
        auto *column = menu->property("column").value<QQuickItem *>();
        Operator::tap(Operator::allByClass(column, "QSP::BeepButton").value(entry));
        look(names[entry]);
        if (entry == 1) {
            QQuickItem *card = fixture.card("QSP::CardNetwork");
            QVERIFY(card);
            const auto adapters = Operator::items(card, [](QQuickItem *item) {
                return item->isVisible() && item->property("checkable").toBool() &&
                       item->property("txt").isValid();
            });
            QCOMPARE(adapters.size(), 5);
            for (QQuickItem *adapter : adapters) {
                Operator::tap(adapter);
                look("adapter");
            }
        }
        if (narrow) {
            Operator::tap(Operator::byClass(titleBar, "QSP::BeepButton"));
            look("menu");
        }
    }
}

PANEL_TEST_MAIN(TestLayout)

#include "test_layout.moc"
