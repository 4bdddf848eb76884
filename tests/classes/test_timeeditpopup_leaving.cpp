#include "cards/general/cardtime.h"
#include "controls/timeeditpopup.h"
#include "tests/classes/cardscene.h"
#include "tests/support/journal.h"

#include <QtQuick/private/qquicktextinput_p.h>

#include <functional>

using QSP::TimeEditPopup;
using QSP::VkbManager;

namespace {

/// The clock's editor with a half-typed year, on a screen inside an item of the host's.
struct HalfTyped : CardScene {
    HalfTyped() : around(new QQuickItem(window()->contentItem()))
    {
        around->setSize(root()->size());
        root()->setParent(around);
        root()->setParentItem(around);
        clock = card<QSP::CardTime>("QSP::CardTime");
        edit();
    }

    void edit()
    {
        clock->openDialog();
        popup = clock->findChild<TimeEditPopup *>();
        QTRY_VERIFY(popup->isOpened());
        Operator::tap(year());
        QVERIFY(VkbManager::instance().isVisible());
        Operator::key(window(), Qt::Key_Delete);
        Operator::type(window(), QStringLiteral("20"));
        QCOMPARE(year()->text(), QStringLiteral("20"));
        HmiSimulator::clearJournal();
    }
    QQuickTextInput *year() const
    {
        const auto isYear = [](QQuickItem *item) { return item->objectName() == QLatin1String("Year"); };
        return qobject_cast<QQuickTextInput *>(Operator::items(popup->contentItem(), isYear).value(0));
    }

    QQuickWindow elsewhere;
    QPointer<QQuickItem> around;
    QPointer<QSP::CardTime> clock;
    QPointer<TimeEditPopup> popup;
};

using Leave = std::function<void(HalfTyped *)>;

} // namespace

Q_DECLARE_METATYPE(Leave)

/// The screen goes, in whatever way, while the clock is being edited.
class TestTimeEditPopupLeaving : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void takesTheEditBack_data();
    void takesTheEditBack();
};

void TestTimeEditPopupLeaving::init()
{
    beginWatch();
    HmiSimulator::reset();
}

void TestTimeEditPopupLeaving::takesTheEditBack_data()
{
    QTest::addColumn<Leave>("leave");
    const QVector<QPair<const char *, Leave>> ways{
        {"closed by the host", [](HalfTyped *scene) { scene->close(); }},
        {"hidden", [](HalfTyped *scene) { scene->root()->setVisible(false); }},
        {"hidden with what is around", [](HalfTyped *scene) { scene->around->setVisible(false); }},
        {"taken out", [](HalfTyped *scene) { scene->root()->setParentItem(nullptr); }},
        {"taken out with what is around", [](HalfTyped *scene) { scene->around->setParentItem(nullptr); }},
        {"taken to another window",
         [](HalfTyped *scene) { scene->root()->setParentItem(scene->elsewhere.contentItem()); }},
        {"deleted", [](HalfTyped *scene) { delete scene->root(); }},
        {"deleted with what is around", [](HalfTyped *scene) { delete scene->around; }},
        {"taken out, then deleted",
         [](HalfTyped *scene) {
             QQuickItem *root = scene->root();
             root->setParentItem(nullptr);
             delete root;
         }},
        {"card deleted", [](HalfTyped *scene) { delete scene->clock; }},
    };
    for (const auto &way : ways)
        QTest::newRow(way.first) << way.second;
}

void TestTimeEditPopupLeaving::takesTheEditBack()
{
    QFETCH(Leave, leave);
    HalfTyped scene;
    leave(&scene);
    QVERIFY(!VkbManager::instance().isVisible());
    QTRY_VERIFY(!scene.popup || !scene.popup->isVisible());
    QVERIFY(!Operator::byText(scene.glass(), QStringLiteral("OK")));
    // The window goes on: it draws, and takes keys that reach no field.
    Operator::type(scene.window(), QStringLiteral("31"));
    Operator::key(scene.window(), Qt::Key_Return);
    Operator::settle();
    QVERIFY(!scene.keyboardKey(QStringLiteral("1")));
    QCOMPARE(Journal::callsButBeeps(), QStringList());

    if (!scene.popup)
        return;
    QCOMPARE(scene.year()->text().size(), 4);
    // It comes back whole, and without a field that is being edited.
    scene.around->setParentItem(scene.window()->contentItem());
    scene.around->setVisible(true);
    scene.root()->setParentItem(scene.around);
    scene.open();
    Operator::settle();
    QVERIFY(!scene.popup->isVisible());
    QVERIFY(!VkbManager::instance().isVisible());
    scene.edit();
}

PANEL_TEST_MAIN(TestTimeEditPopupLeaving)

#include "test_timeeditpopup_leaving.moc"
