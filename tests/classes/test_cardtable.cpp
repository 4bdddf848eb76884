#include "shell/cardinfo.h"

#include "controls/basecard.h"
#include "shell/base/qmltype.h"
#include "tests/classes/cardscene.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

using QSP::AppRootItem;
using Cards = AppRootItem::Cards;
using Page = AppRootItem::MenuIndex;

namespace {

// Far behind the last kind that the screen has of its own.
constexpr auto tenth = static_cast<Cards>(100);
constexpr auto broken = static_cast<Cards>(101);

/// What the root made of the row of the tenth card.
struct Said {
    int registered = 0;
    int shown = 0;
    QVector<AppRootItem *> wired;
    bool isWanted = true;
};

Said &said()
{
    static Said theSaid;
    return theSaid;
}

} // namespace

/// A card that the screen knows nothing of.
class TenthCard : public QSP::BaseCard
{
    Q_OBJECT
};

/// A card is a class, a document and a row: here all three come from outside the screen.
class TestCardTable : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void opensWithItsPage_data();
    void opensWithItsPage();
    void nothingIsDoneForPagesNobodyVisits();
    void comesAndGoesAsItIsWanted();
    void hasItsOwnOnEachScreen();
    void closingHidesIt();
    void documentThatDoesNotLoadIsMissingAlone();
    void hostsHideItByItsName();
    void hiddenPagesAreNotShown();

private:
    static AppRootItem *root() { return AppRootItem::instance(); }
    /// Taps an entry of the menu, which a narrow screen has to be led back to.
    static void tapMenu(const char *text);
    const char *document(const char *name, const char *text);

    QTemporaryDir m_directory;
    QList<QByteArray> m_documents;
};

const char *TestCardTable::document(const char *name, const char *text)
{
    QFile file(m_directory.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) < 0)
        return "";
    m_documents << QUrl::fromLocalFile(file.fileName()).toEncoded();
    return m_documents.constLast().constData();
}

void TestCardTable::tapMenu(const char *text)
{
    if (root()->returnButton() && root()->returnButton()->isVisible())
        Operator::tap(root()->returnButton());
    Operator::tap(
        Operator::ancestorOf(Operator::byText(root()->menuBar(), QLatin1String(text)), "QSP::BeepButton"));
}

void TestCardTable::initTestCase()
{
    const auto registerType = [] {
        ++said().registered;
        QSP::registerQmlType<TenthCard>();
    };
    const auto wire = [](AppRootItem *root, QQuickItem *card) {
        QVERIFY(qobject_cast<TenthCard *>(card));
        said().wired << root;
    };
    const auto isWanted = [](AppRootItem *) { return said().isWanted; };
    const auto pageShown = [](QQuickItem *card) {
        QVERIFY(qobject_cast<TenthCard *>(card));
        ++said().shown;
    };
    const char *whole = document("Tenth.qml", R"(import QtQuick 2.15
import QQuickSystemSet 1.0
TenthCard {
    height: 100
    Text { text: "The tenth" }
})");
    QSP::cardTable().push_back({tenth,
                                "tenth",
                                Page::Version,
                                whole,
                                &QSP::CardInfo<tenth>::pComp,
                                {registerType},
                                wire,
                                isWanted,
                                pageShown});
    QSP::cardTable().push_back({broken,
                                "broken",
                                Page::Language,
                                document("Broken.qml", "nonsense"),
                                &QSP::CardInfo<broken>::pComp,
                                {}});
}

void TestCardTable::init()
{
    beginWatch();
    HmiSimulator::reset();
    said() = {};
}

void TestCardTable::opensWithItsPage_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(1024, 600);
    QTest::newRow("narrow") << QSize(480, 800);
}

void TestCardTable::opensWithItsPage()
{
    QFETCH(QSize, size);
    CardScene scene(size);
    tapMenu("Version");
    const QQuickItem *card = root()->getCardItem(tenth);
    QVERIFY(qobject_cast<const TenthCard *>(card));
    QCOMPARE(card->parentItem(), root()->getCardContainer());
    QCOMPARE(card->width(), root()->getCardContainer()->width());
    const QQuickItem *above = root()->getCardItem(Cards::Version);
    QVERIFY(card->y() >= above->y() + above->height());
    QVERIFY(Operator::visibleTexts(scene.root()).contains(QStringLiteral("The tenth")));
    QCOMPARE(said().wired, QVector<AppRootItem *>{root()});
    QCOMPARE(said().shown, 1);

    tapMenu("General");
    QVERIFY(!card->isVisible());
    QCOMPARE(said().shown, 1);
    tapMenu("Version");
    QVERIFY(card->isVisible());
    QCOMPARE(root()->getCardItem(tenth), card);
    QCOMPARE(said().wired.size(), 1);
    QCOMPARE(said().shown, 2);
}

void TestCardTable::nothingIsDoneForPagesNobodyVisits()
{
    CardScene scene;
    for (const char *page : {"Network", "General"})
        tapMenu(page);
    scene.close();
    scene.open();
    QVERIFY(!root()->getCardItem(tenth));
    QVERIFY(!root()->getCardItem(Cards::Version));
    QCOMPARE(said().registered, 0);
    QCOMPARE(said().shown, 0);
}

void TestCardTable::comesAndGoesAsItIsWanted()
{
    CardScene scene;
    said().isWanted = false;
    tapMenu("Version");
    QVERIFY(!root()->getCardItem(tenth));
    QCOMPARE(said().shown, 0);
    said().isWanted = true;
    root()->updateCards();
    const QQuickItem *card = root()->getCardItem(tenth);
    QVERIFY(card && card->isVisible());
    said().isWanted = false;
    root()->updateCards();
    QVERIFY(!card->isVisible());
    QVERIFY(root()->getCardItem(Cards::Version)->isVisible());

    // It is for the page that is shown alone.
    said().isWanted = true;
    tapMenu("General");
    root()->updateCards();
    QVERIFY(!card->isVisible());
}

void TestCardTable::hasItsOwnOnEachScreen()
{
    const CardScene first;
    AppRootItem *older = root();
    tapMenu("Version");
    const CardScene second;
    QVERIFY(!root()->getCardItem(tenth));
    tapMenu("Version");
    QVERIFY(root()->getCardItem(tenth) != older->getCardItem(tenth));
    QCOMPARE(said().wired, (QVector<AppRootItem *>{older, root()}));
}

void TestCardTable::closingHidesIt()
{
    CardScene scene({480, 800});
    tapMenu("Version");
    const QQuickItem *card = root()->getCardItem(tenth);
    scene.close();
    scene.open();
    QCOMPARE(root()->currentPage(), Page::None);
    tapMenu("General");
    QVERIFY(!card->isVisible());
    tapMenu("Version");
    QVERIFY(card->isVisible());
}

void TestCardTable::documentThatDoesNotLoadIsMissingAlone()
{
    const CardScene scene;
    expectMessage(QStringLiteral("Broken\\.qml:1"));
    tapMenu("Language");
    tapMenu("General");
    tapMenu("Language");
    QVERIFY(!root()->getCardItem(broken));
    QVERIFY(root()->getCardItem(Cards::Language)->isVisible());
}

void TestCardTable::hostsHideItByItsName()
{
    CardScene scene({1024, 600},
                    {{QStringLiteral("panelHiddenCards"), QStringList{QStringLiteral("tenth")}}});
    QVERIFY(root()->isHidden(tenth));
    QVERIFY(!root()->isHidden(Page::Version));
    tapMenu("Version");
    QVERIFY(root()->getCardItem(Cards::Version)->isVisible());
    root()->updateCards();
    root()->showCard(tenth, true);
    QVERIFY(!root()->getCardItem(tenth));
    QCOMPARE(said().registered, 0);
    QCOMPARE(said().shown, 0);
}

// Whoever asks for one.
void TestCardTable::hiddenPagesAreNotShown()
{
    QStringList hidden;
    for (const QSP::CardRow &row : QSP::cardTable()) {
        if (row.page == Page::Wifi || row.page == Page::Version)
            hidden << QString::fromLatin1(row.name);
    }
    const CardScene scene({1024, 600}, {{QStringLiteral("panelHiddenCards"), hidden}});
    QSignalSpy changed(root(), &AppRootItem::currentPageChanged);
    for (const Page page : {Page::Wifi, Page::Version}) {
        QVERIFY(root()->isHidden(page));
        root()->setCurrentPage(page);
    }
    QCOMPARE(root()->currentPage(), Page::General);
    QCOMPARE(changed.size(), 0);
    QVERIFY(root()->getCardItem(Cards::Time)->isVisible());
}

PANEL_TEST_MAIN(TestCardTable)

#include "test_cardtable.moc"
