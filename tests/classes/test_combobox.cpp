#include "controls/combobox.h"
#include "tests/classes/controlscene.h"

#include <QtQml/QQmlComponent>
#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuickTemplates2/private/qquickcombobox_p.h>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

using QSP::ComboBox;

/// What a combo box holds, how it is drawn and how it is made.
class TestComboBox : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsEmpty();
    void namesBecomeRecords();
    void plainStringsAreNamesToo();
    void newModelKeepsThePosition();
    void shorterModelKeepsTheIndex();
    void emptyModels();
    void indexIsForwarded();
    void fontSizeReachesBoxAndRows();
    void geometryForHeight40();
    void framesAndColours();
    void isReadable();
    void popupLiesOverEverything();
    void fromADocument();
    void needsAnEngine();
    void comesInTheNextEngine();

private:
    QStringList names() const;

    std::unique_ptr<ControlScene> m_scene;
    ComboBox *m_box = nullptr;
    QQuickComboBox *m_combo = nullptr;
};

void TestComboBox::init()
{
    beginWatch();
    m_scene = std::make_unique<ControlScene>();
    m_box = new ComboBox(m_scene->page());
    m_box->setPosition({20, 40});
    m_box->setSize({160, 40});
    m_combo = m_box->findChild<QQuickComboBox *>();
    QVERIFY(m_combo);
}

void TestComboBox::cleanup()
{
    m_scene.reset();
    endWatch();
}

QStringList TestComboBox::names() const
{
    QStringList names;
    for (int i = 0; i < m_combo->count(); ++i)
        names << m_combo->textAt(i);
    return names;
}

void TestComboBox::startsEmpty()
{
    QCOMPARE(m_box->currentIndex(), -1);
    QCOMPARE(m_box->fontPixelSize(), 20);
    QCOMPARE(m_combo->property("fontPixelSize").toInt(), 20);
    QCOMPARE(m_combo->parentItem(), m_box);
    QCOMPARE(m_combo->size(), m_box->size());
}

void TestComboBox::namesBecomeRecords()
{
    QSignalSpy changed(m_box, &ComboBox::modelChanged);
    m_box->setStringListModel({QStringLiteral("LAN0"), QStringLiteral("WIFI"), QStringLiteral("4G")});
    const QVariantList records = m_box->model().toList();
    QCOMPARE(records.size(), 3);
    QCOMPARE(records.at(1).toMap(), (QVariantMap{{QStringLiteral("name"), QStringLiteral("WIFI")}}));
    QCOMPARE(names(), QStringList({QStringLiteral("LAN0"), QStringLiteral("WIFI"), QStringLiteral("4G")}));
    QCOMPARE(m_combo->textRole(), QStringLiteral("name"));
    QCOMPARE(changed.count(), 1);
}

void TestComboBox::plainStringsAreNamesToo()
{
    m_box->setModel(QStringList{QStringLiteral("Asia"), QStringLiteral("Europe")});
    m_box->setCurrentIndex(1);
    QCOMPARE(m_combo->displayText(), QStringLiteral("Europe"));
    Operator::tap(m_box);
    Operator::settle();
    QVERIFY(Operator::byText(m_scene->glass(), QStringLiteral("Asia")));
}

void TestComboBox::newModelKeepsThePosition()
{
    m_box->setStringListModel({QStringLiteral("Asia"), QStringLiteral("Europe")});
    m_box->setCurrentIndex(1);
    QSignalSpy index(m_box, &ComboBox::currentIndexChanged);
    QSignalSpy activated(m_box, &ComboBox::activated);
    m_box->setStringListModel({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    QCOMPARE(m_box->currentIndex(), 1);
    QCOMPARE(m_combo->displayText(), QStringLiteral("B"));
    QCOMPARE(index.count() + activated.count(), 0);
    m_box->setCurrentIndex(2);
    QCOMPARE(index.count(), 1);
}

void TestComboBox::shorterModelKeepsTheIndex()
{
    m_box->setStringListModel({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    m_box->setCurrentIndex(2);
    QSignalSpy index(m_box, &ComboBox::currentIndexChanged);
    m_box->setStringListModel({QStringLiteral("X")});
    QCOMPARE(m_box->currentIndex(), 2);
    QCOMPARE(m_combo->displayText(), QString());
    QCOMPARE(index.count(), 0);
    Operator::tap(m_box);
    Operator::settle();
    Operator::tap(Operator::byText(m_scene->glass(), QStringLiteral("X")));
    QCOMPARE(m_box->currentIndex(), 0);
    QCOMPARE(m_combo->displayText(), QStringLiteral("X"));
}

void TestComboBox::emptyModels()
{
    for (const QVariant &nothing : {QVariant(QStringList()), QVariant(QVariantList()), QVariant()}) {
        m_box->setStringListModel({QStringLiteral("A")});
        m_box->setModel(nothing);
        QCOMPARE(m_combo->count(), 0);
        QCOMPARE(m_combo->displayText(), QString());
        Operator::tap(m_box);
        Operator::settle();
        Operator::tap(m_box);
        Operator::settle();
    }
}

void TestComboBox::indexIsForwarded()
{
    m_box->setStringListModel({QStringLiteral("A"), QStringLiteral("B")});
    QSignalSpy index(m_box, &ComboBox::currentIndexChanged);
    QSignalSpy activated(m_box, &ComboBox::activated);
    QVERIFY(m_box->setProperty("currentIndex", 1));
    m_box->setCurrentIndex(1);
    QCOMPARE(m_box->property("currentIndex").toInt(), 1);
    QCOMPARE(index.count(), 1);
    QCOMPARE(activated.count(), 0);
    QCOMPARE(ControlScene::beeps(), 0);
}

void TestComboBox::fontSizeReachesBoxAndRows()
{
    QSignalSpy changed(m_box, &ComboBox::fontPixelSizeChanged);
    m_box->setFontPixelSize(17);
    m_box->setFontPixelSize(17);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_combo->font().pixelSize(), 17);
    m_box->setStringListModel({QStringLiteral("LAN0"), QStringLiteral("LAN1")});
    Operator::tap(m_box);
    Operator::settle();
    const QQuickItem *row = Operator::byText(m_scene->glass(), QStringLiteral("LAN1"));
    QVERIFY(row);
    QCOMPARE(row->property("font").value<QFont>().pixelSize(), 17);
}

void TestComboBox::geometryForHeight40()
{
    Operator::settle();
    auto *arrow = qobject_cast<QQuickImage *>(m_combo->indicator());
    QVERIFY(arrow);
    QCOMPARE(arrow->source(), QUrl(QStringLiteral("qrc:/setting/icons/down_arrow.png")));
    QCOMPARE(arrow->sourceSize(), QSize(13, 13));
    QCOMPARE(arrow->size(), QSizeF(13, 13));
    QCOMPARE(QQuickItemPrivate::get(arrow)->anchors()->rightMargin(), 10.0);
    QCOMPARE(m_box->width() - arrow->mapToItem(m_box, {arrow->width(), 0}).x(), 10.0);
    QCOMPARE(qobject_cast<QQuickRectangle *>(m_combo->background())->radius(), 5.0);
    QCOMPARE(qobject_cast<QQuickRectangle *>(m_combo->popup()->background())->radius(), 5.0);
    m_box->setHeight(60);
    QCOMPARE(arrow->sourceSize(), QSize(20, 20));
    QCOMPARE(qobject_cast<QQuickRectangle *>(m_combo->background())->radius(), 7.5);
}

void TestComboBox::framesAndColours()
{
    auto *frame = qobject_cast<QQuickRectangle *>(m_combo->background());
    auto *list = qobject_cast<QQuickRectangle *>(m_combo->popup()->background());
    QCOMPARE(frame->color(), QColor(Qt::white));
    QCOMPARE(list->color(), QColor(Qt::white));
    QCOMPARE(frame->border()->width(), 1.0);
    QCOMPARE(frame->border()->color(), QColor(226, 226, 226));
    QCOMPARE(list->border()->color(), QColor(110, 162, 226));
    m_box->setStringListModel({QStringLiteral("A"), QStringLiteral("B")});
    Operator::tap(m_box);
    QVERIFY(m_combo->popup()->isOpened());
    QCOMPARE(frame->border()->color(), QColor(110, 162, 226));
    QCOMPARE(list->border()->color(), QColor(110, 162, 226));
    Operator::tap(m_box);
    QVERIFY(!m_combo->popup()->isOpened());
    QCOMPARE(frame->border()->color(), QColor(226, 226, 226));
    QCOMPARE(list->border()->color(), QColor(110, 162, 226));
}

void TestComboBox::isReadable()
{
    // Below the title bar.
    m_box->setY(120.0);
    m_box->setStringListModel({QStringLiteral("Asia"), QStringLiteral("Europe")});
    m_box->setCurrentIndex(0);
    // Dark letters, and nothing else but white above them, from edge to edge.
    const auto look = [this](const QQuickItem *item, int firstColumn) {
        const QRect place = item->mapRectToScene(QRectF(QPointF(), item->size())).toRect();
        const QImage seen = Operator::picture(m_scene->window()).copy(place);
        int darkest = 255;
        for (int x = firstColumn; x < seen.width() / 2; ++x) {
            QCOMPARE(seen.pixelColor(x, 3), QColor(Qt::white));
            for (int y = 3; y < seen.height() - 3; ++y)
                darkest = qMin(darkest, seen.pixelColor(x, y).lightness());
        }
        QVERIFY2(darkest < 100, qPrintable(QString::number(darkest)));
    };
    look(m_box, 8);
    Operator::tap(m_box);
    Operator::settle();
    QQuickItem *europe = Operator::byText(m_scene->glass(), QStringLiteral("Europe"));
    QVERIFY(europe);
    look(europe->parentItem(), 2);
}

void TestComboBox::popupLiesOverEverything()
{
    QCOMPARE(m_combo->popup()->z(), qreal(ControlScene::popupZ));
    QCOMPARE(m_combo->popup()->padding(), 1.0);
}

void TestComboBox::fromADocument()
{
    ComboBox::registerType();
    ComboBox::registerType();
    QQmlComponent component(m_scene->engine());
    component.setData(
        "import QQuickSystemSet 1.0\n"
        "ComboBox { model: [{name: 'Asia'}, {name: 'Europe'}]; currentIndex: 1; fontPixelSize: 18 }",
        QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(object->property("currentIndex").toInt(), 1);
    QCOMPARE(object->findChild<QQuickComboBox *>()->displayText(), QStringLiteral("Europe"));

    QQmlComponent plain(m_scene->engine());
    plain.setData("import QQuickSystemSet 1.0\nComboBox { model: ['Asia', 'Europe'] }", QUrl());
    const std::unique_ptr<QObject> other(plain.create());
    QVERIFY2(other, qPrintable(plain.errorString()));
    QCOMPARE(other->findChild<QQuickComboBox *>()->textAt(1), QStringLiteral("Europe"));
}

void TestComboBox::needsAnEngine()
{
    m_scene->end();
    expectMessage(QStringLiteral("combo box needs the engine"));
    ComboBox box;
    box.setStringListModel({QStringLiteral("A")});
    box.setCurrentIndex(0);
    box.setFontPixelSize(18);
    box.setSize({100, 40});
    QCOMPARE(box.currentIndex(), -1);
    QCOMPARE(box.model(), QVariant());
    QCOMPARE(box.fontPixelSize(), 18);
}

void TestComboBox::comesInTheNextEngine()
{
    m_scene->end();
    m_scene = std::make_unique<ControlScene>();
    auto *box = new ComboBox(m_scene->page());
    auto *combo = box->findChild<QQuickComboBox *>();
    QVERIFY(combo);
    QCOMPARE(qmlEngine(combo), m_scene->engine());
    QCOMPARE(qmlEngine(combo->delegate()), nullptr);
    QCOMPARE(combo->delegate()->engine(), m_scene->engine());
    // One pair of components serves all boxes of an engine.
    const auto *sibling = (new ComboBox(m_scene->page()))->findChild<QQuickComboBox *>();
    QCOMPARE(sibling->delegate(), combo->delegate());
}

PANEL_TEST_MAIN(TestComboBox)

#include "test_combobox.moc"
