#include "host/glass/sight.h"

#include "tests/support/paneltest.h"

#include <QtQuick/private/qquickflickable_p.h>
#include <QtQuick/private/qquickmousearea_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>
#include <QtQuick/private/qquicktextinput_p.h>
#include <QtQuick/QQuickWindow>
#include <QtQuickTemplates2/private/qquickbutton_p.h>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

/// Who looks at the glass finds what can be seen there, and knows what can be touched.
class TestSight : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void belowNothingIsNothing();
    void itemComesBeforeWhatIsInIt();
    void hiddenIsNotVisible();
    void hiddenTextIsNotFound();
    void textIsLabelOrField();
    void classIsFoundByItsBaseToo();
    void ancestorIsTheNearest();
    void placeIsInTheWindow();
    void scrolledOutIsNotOnTheGlass();
    void clippedIsNotOnTheGlass();
    void hiddenIsNotOnTheGlass();
    void edgeOfTheGlassIsNotOnIt();
    void nothingCoversWhatLiesFree();
    void whatTakesTouchesCovers();
    void pictureCoversNothing();
    void siblingBeneathCoversNothing();
    void depthDecidesWhatIsAbove();
    void maskDecidesWhatIsCovered();
    void disabledOrHiddenCoversNothing();
    void whatIsClippedAwayCoversNothing();
    void modalPopupCoversEverything();
    void popupCoversWhatIsBeneathItAlone();

private:
    QQuickItem *glass() const { return m_window->contentItem(); }
    QQuickButton *addButton(QQuickItem *parent, const QRectF &place) const;

    std::unique_ptr<QQuickWindow> m_window;
};

namespace {

constexpr QRectF somewhere(20, 20, 40, 40);

const auto anything = [](QQuickItem * /*item*/) { return true; };

void put(QQuickItem *item, const QRectF &place)
{
    item->setPosition(place.topLeft());
    item->setSize(place.size());
}

QQuickText *addText(QQuickItem *parent, const QString &text)
{
    auto *item = new QQuickText(parent);
    item->setText(text);
    return item;
}

} // namespace

QQuickButton *TestSight::addButton(QQuickItem *parent, const QRectF &place) const
{
    auto *button = new QQuickButton(parent);
    put(button, place);
    return button;
}

void TestSight::init()
{
    beginWatch();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(200, 100);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestSight::cleanup()
{
    m_window.reset();
    endWatch();
}

void TestSight::belowNothingIsNothing()
{
    QVERIFY(Sight::all(nullptr, anything).isEmpty());
    QVERIFY(Sight::visible(nullptr, anything).isEmpty());
    QVERIFY(Sight::visibleByClass(nullptr, "QQuickItem").isEmpty());
    QVERIFY(Sight::visibleByText(nullptr, QString()).isEmpty());
    QCOMPARE(Sight::byClass(nullptr, "QQuickItem"), nullptr);
    QCOMPARE(Sight::byText(nullptr, QString()), nullptr);
    QCOMPARE(Sight::byName(nullptr, QString()), nullptr);
    QCOMPARE(Sight::ancestorOf(nullptr, "QQuickItem"), nullptr);
    QVERIFY(!Sight::isOnGlass(nullptr));
    QCOMPARE(Sight::coverOf(nullptr), nullptr);
}

void TestSight::itemComesBeforeWhatIsInIt()
{
    QQuickItem first(glass());
    QQuickItem inFirst(&first);
    QQuickItem second(glass());
    QQuickItem inSecond(&second);
    const QVector<QQuickItem *> expected{&first, &inFirst, &second, &inSecond};
    QCOMPARE(Sight::all(glass(), anything).mid(1, 4), expected);
    QCOMPARE(Sight::visible(glass(), anything).mid(1, 4), expected);
    QCOMPARE(Sight::all(&first, anything), expected.mid(0, 2));
}

void TestSight::hiddenIsNotVisible()
{
    QQuickItem page(glass());
    QQuickItem drawer(&page);
    QQuickItem inDrawer(&drawer);
    inDrawer.setObjectName(QStringLiteral("spoon"));
    QCOMPARE(Sight::visible(&page, anything).size(), 3);
    QCOMPARE(Sight::byName(&page, QStringLiteral("spoon")), &inDrawer);

    drawer.setVisible(false);
    QCOMPARE(Sight::visible(&page, anything), QVector<QQuickItem *>{&page});
    QCOMPARE(Sight::byName(&page, QStringLiteral("spoon")), nullptr);
    // What is in a hidden item cannot be seen when one looks there alone either.
    QVERIFY(Sight::visible(&inDrawer, anything).isEmpty());
    QCOMPARE(Sight::all(&page, anything), (QVector<QQuickItem *>{&page, &drawer, &inDrawer}));
}

void TestSight::hiddenTextIsNotFound()
{
    const QString text = QStringLiteral("Network");
    QQuickItem page(glass());
    QQuickText *hidden = addText(&page, text);
    QQuickText *shown = addText(&page, text);
    QCOMPARE(Sight::visibleByText(glass(), text), (QVector<QQuickItem *>{hidden, shown}));
    QCOMPARE(Sight::byText(glass(), text), hidden);
    hidden->setVisible(false);
    QCOMPARE(Sight::byText(glass(), text), shown);
    page.setVisible(false);
    QCOMPARE(Sight::byText(glass(), text), nullptr);
}

void TestSight::textIsLabelOrField()
{
    QQuickText *label = addText(glass(), QStringLiteral("7"));
    QQuickTextInput field(glass());
    field.setText(QStringLiteral("7"));
    QQuickButton *button = addButton(glass(), somewhere);
    button->setText(QStringLiteral("7"));
    QVERIFY(Sight::isText(label) && Sight::isText(&field) && !Sight::isText(button));
    QCOMPARE(Sight::visibleByText(glass(), QStringLiteral("7")), (QVector<QQuickItem *>{label, &field}));
    QCOMPARE(Sight::byText(glass(), QStringLiteral("70")), nullptr);
}

void TestSight::classIsFoundByItsBaseToo()
{
    QQuickItem page(glass());
    QQuickButton *button = addButton(&page, somewhere);
    QCOMPARE(Sight::byClass(&page, "QQuickButton"), button);
    QCOMPARE(Sight::visibleByClass(&page, "QQuickAbstractButton"), QVector<QQuickItem *>{button});
    QCOMPARE(Sight::byClass(&page, "QQuickSwitch"), nullptr);
}

void TestSight::ancestorIsTheNearest()
{
    QQuickRectangle outer(glass());
    QQuickRectangle inner(&outer);
    QQuickText *text = addText(&inner, QStringLiteral("7"));
    QCOMPARE(Sight::ancestorOf(text, "QQuickRectangle"), &inner);
    QCOMPARE(Sight::ancestorOf(text, "QQuickText"), text);
    QCOMPARE(Sight::ancestorOf(text, "QQuickButton"), nullptr);
}

void TestSight::placeIsInTheWindow()
{
    QQuickItem page(glass());
    put(&page, {10, 20, 100, 50});
    QQuickItem item(&page);
    put(&item, {1, 2, 30, 40});
    QCOMPARE(Sight::placeOf(&item), QRectF(11, 22, 30, 40));
    QCOMPARE(Sight::centerOf(&item), QPoint(26, 42));
}

void TestSight::scrolledOutIsNotOnTheGlass()
{
    QQuickFlickable pool(glass());
    put(&pool, {0, 0, 200, 100});
    pool.setContentHeight(1000);
    QQuickButton *button = addButton(pool.contentItem(), somewhere);
    QVERIFY(Sight::isOnGlass(button));
    pool.setContentY(200);
    QVERIFY(!Sight::isOnGlass(button));
}

void TestSight::clippedIsNotOnTheGlass()
{
    QQuickItem view(glass());
    put(&view, {0, 0, 200, 30});
    QQuickItem content(&view);
    QQuickButton *button = addButton(&content, somewhere);
    QVERIFY(Sight::isOnGlass(button));
    view.setClip(true);
    QVERIFY(!Sight::isOnGlass(button));
    view.setHeight(50);
    QVERIFY(Sight::isOnGlass(button));
}

void TestSight::hiddenIsNotOnTheGlass()
{
    QQuickButton *button = addButton(glass(), somewhere);
    button->setVisible(false);
    QVERIFY(!Sight::isOnGlass(button));
    const QQuickItem nowhere;
    QVERIFY(!Sight::isOnGlass(&nowhere));
}

void TestSight::edgeOfTheGlassIsNotOnIt()
{
    QVERIFY(Sight::isOnGlass(addButton(glass(), {189, 0, 20, 20})));
    QVERIFY(!Sight::isOnGlass(addButton(glass(), {190, 0, 20, 20})));
}

void TestSight::nothingCoversWhatLiesFree()
{
    QQuickMouseArea page(glass());
    put(&page, {0, 0, 200, 100});
    QQuickButton *button = addButton(&page, somewhere);
    QCOMPARE(Sight::coverOf(addText(button, QStringLiteral("7"))), nullptr);
    QCOMPARE(Sight::coverOf(button), nullptr);
    const QQuickButton *inner = addButton(button, {0, 0, 40, 40});
    QCOMPARE(Sight::coverOf(button), nullptr);
    QCOMPARE(Sight::coverOf(inner), nullptr);
}

void TestSight::whatTakesTouchesCovers()
{
    QQuickItem page(glass());
    const QQuickButton *button = addButton(&page, somewhere);
    QQuickItem curtain(glass());
    QQuickButton *above = addButton(&curtain, somewhere);
    QCOMPARE(Sight::coverOf(button), above);
    QCOMPARE(Sight::coverOf(above), nullptr);
}

void TestSight::pictureCoversNothing()
{
    const QQuickButton *button = addButton(glass(), somewhere);
    QQuickRectangle picture(glass());
    put(&picture, somewhere);
    QCOMPARE(Sight::coverOf(button), nullptr);
}

void TestSight::siblingBeneathCoversNothing()
{
    QQuickMouseArea beneath(glass());
    put(&beneath, {0, 0, 200, 100});
    QQuickItem page(glass());
    const QQuickText *text = addText(&page, QStringLiteral("7"));
    QCOMPARE(Sight::coverOf(text), nullptr);
    page.setEnabled(false);
    QCOMPARE(Sight::coverOf(text), nullptr);
}

void TestSight::depthDecidesWhatIsAbove()
{
    QQuickButton *first = addButton(glass(), somewhere);
    QQuickButton *second = addButton(glass(), somewhere);
    first->setZ(1);
    QCOMPARE(Sight::coverOf(first), nullptr);
    QCOMPARE(Sight::coverOf(second), first);
}

void TestSight::maskDecidesWhatIsCovered()
{
    const QQuickButton *button = addButton(glass(), somewhere);
    QQuickButton *beside = addButton(glass(), {0, 20, 20, 40});
    QCOMPARE(Sight::coverOf(button), nullptr);
    QQuickItem mask(beside);
    mask.setSize({100, 40});
    beside->setContainmentMask(&mask);
    QCOMPARE(Sight::coverOf(button), beside);
    beside->setContainmentMask(nullptr);
}

void TestSight::disabledOrHiddenCoversNothing()
{
    QQuickButton *button = addButton(glass(), somewhere);
    QQuickItem curtain(glass());
    QQuickButton *above = addButton(&curtain, somewhere);
    QCOMPARE(Sight::coverOf(button), above);
    curtain.setEnabled(false);
    QCOMPARE(Sight::coverOf(button), nullptr);
    curtain.setEnabled(true);
    curtain.setVisible(false);
    QCOMPARE(Sight::coverOf(button), nullptr);
    curtain.setVisible(true);
    // A disabled item can be covered as well.
    button->setEnabled(false);
    QCOMPARE(Sight::coverOf(button), above);
}

void TestSight::whatIsClippedAwayCoversNothing()
{
    const QQuickButton *button = addButton(glass(), somewhere);
    QQuickItem view(glass());
    put(&view, {0, 0, 200, 30});
    QQuickButton *above = addButton(&view, somewhere);
    QCOMPARE(Sight::coverOf(button), above);
    view.setClip(true);
    QCOMPARE(Sight::coverOf(button), nullptr);
}

void TestSight::modalPopupCoversEverything()
{
    const QQuickButton *button = addButton(glass(), somewhere);
    QQuickPopup popup;
    popup.setParentItem(glass());
    popup.setX(120);
    popup.setWidth(50);
    popup.setHeight(50);
    popup.setModal(true);
    popup.open();
    QVERIFY(Sight::coverOf(button));
    popup.close();
    QTRY_VERIFY(!popup.isVisible());
    QCOMPARE(Sight::coverOf(button), nullptr);
}

void TestSight::popupCoversWhatIsBeneathItAlone()
{
    const QQuickButton *button = addButton(glass(), somewhere);
    const QQuickButton *beneath = addButton(glass(), somewhere.translated(100, 0));
    QQuickPopup popup;
    popup.setParentItem(glass());
    popup.setX(120);
    popup.setWidth(50);
    popup.setHeight(80);
    popup.open();
    QCOMPARE(Sight::coverOf(button), nullptr);
    QVERIFY(Sight::coverOf(beneath));
    QVERIFY(Sight::coverOf(beneath)->inherits("QQuickPopupItem"));
}

PANEL_TEST_MAIN(TestSight)
#include "test_sight.moc"
