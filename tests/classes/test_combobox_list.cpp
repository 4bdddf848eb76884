#include "controls/combobox.h"
#include "tests/classes/controlscene.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QTouchDevice>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktextinput_p.h>
#include <QtQuickTemplates2/private/qquickcombobox_p.h>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

using QSP::ComboBox;

/// The open list under the operator's fingers.
class TestComboBoxList : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pickedByClick();
    void pickedByTouch();
    void pickingTheCurrentEntry();
    void pressBeepsReleaseDoesNot();
    void silentWhileTheBuzzerIsOff();
    void rowsAreAsHighAsTheBox();
    void currentRowIsHighlighted();
    void tapElsewhereCloses();
    void hidingTheScreenCloses();
    void showingTheScreenDoesNotClose();
    void thousandEntriesScroll();
    void nearTheLowerEdge();
    void languageSwitchWhileOpen();
    void modelReplacedWhileOpen();
    void endsTheEditingOfAField();
    void disabledStaysClosed();
    void disabledLooksIt();
    void diesWhileOpen();
    void diesWhileDisabled();
    void screenDiesWhileOpen();
    void keyStorm();

private:
    QQuickItem *row(const QString &name) const
    {
        return Operator::ancestorOf(Operator::byText(m_list->contentItem(), name), "QQuickItemDelegate");
    }
    void openList()
    {
        Operator::tap(m_box);
        Operator::settle();
        QVERIFY(m_list->isOpened());
    }

    // With a finger that rests before it lifts, so that the list stays where it was moved to.
    void swipe(const QPoint &from, const QPoint &to)
    {
        QQuickWindow *window = m_scene->window();
        QTest::touchEvent(window, Operator::touchScreen()).press(0, from, window);
        for (int i = 1; i <= 10; ++i) {
            QTest::touchEvent(window, Operator::touchScreen()).move(0, from + (to - from) * i / 10, window);
            QTest::qWait(5);
        }
        QTest::qWait(100);
        QTest::touchEvent(window, Operator::touchScreen()).move(0, to, window);
        QTest::touchEvent(window, Operator::touchScreen()).release(0, to, window);
        Operator::settle();
    }

    std::unique_ptr<ControlScene> m_scene;
    ComboBox *m_box = nullptr;
    QQuickComboBox *m_combo = nullptr;
    QQuickPopup *m_list = nullptr;
    std::unique_ptr<QSignalSpy> m_activated;
    std::unique_ptr<QSignalSpy> m_index;
};

void TestComboBoxList::init()
{
    beginWatch();
    m_scene = std::make_unique<ControlScene>();
    m_box = new ComboBox(m_scene->page());
    m_box->setPosition({20, 40});
    m_box->setSize({160, 40});
    m_box->setStringListModel({QStringLiteral("LAN0"), QStringLiteral("LAN1"), QStringLiteral("WIFI")});
    m_box->setCurrentIndex(0);
    m_combo = m_box->findChild<QQuickComboBox *>();
    QVERIFY(m_combo);
    m_list = m_combo->popup();
    m_activated = std::make_unique<QSignalSpy>(m_box, &ComboBox::activated);
    m_index = std::make_unique<QSignalSpy>(m_box, &ComboBox::currentIndexChanged);
    Operator::settle();
}

void TestComboBoxList::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestComboBoxList::pickedByClick()
{
    openList();
    QCOMPARE(ControlScene::beeps(), 1);
    Operator::tap(row(QStringLiteral("WIFI")));
    QCOMPARE(ControlScene::beeps(), 2);
    QVERIFY(!m_list->isOpened());
    QCOMPARE(m_box->currentIndex(), 2);
    QCOMPARE(m_combo->displayText(), QStringLiteral("WIFI"));
    QCOMPARE(m_activated->count(), 1);
    QCOMPARE(m_activated->first().first().toInt(), 2);
    QCOMPARE(m_index->count(), 1);
}

void TestComboBoxList::pickedByTouch()
{
    Operator::touch(m_box);
    Operator::settle();
    QVERIFY(m_list->isOpened());
    Operator::touch(row(QStringLiteral("LAN1")));
    QVERIFY(!m_list->isOpened());
    QCOMPARE(m_box->currentIndex(), 1);
    QCOMPARE(m_activated->count(), 1);
    QCOMPARE(ControlScene::beeps(), 2);
}

void TestComboBoxList::pickingTheCurrentEntry()
{
    openList();
    Operator::tap(row(QStringLiteral("LAN0")));
    QCOMPARE(m_activated->count(), 1);
    QCOMPARE(m_index->count(), 0);
    QCOMPARE(ControlScene::beeps(), 2);
}

void TestComboBoxList::pressBeepsReleaseDoesNot()
{
    Operator::press(m_box);
    QCOMPARE(ControlScene::beeps(), 1);
    Operator::release(m_box);
    QCOMPARE(ControlScene::beeps(), 1);
}

void TestComboBoxList::silentWhileTheBuzzerIsOff()
{
    HmiSimulator::setBuzzerOn(false);
    openList();
    Operator::tap(row(QStringLiteral("LAN1")));
    QCOMPARE(ControlScene::beeps(), 0);
    QCOMPARE(m_box->currentIndex(), 1);
}

void TestComboBoxList::rowsAreAsHighAsTheBox()
{
    openList();
    QCOMPARE(m_list->width(), m_box->width());
    QCOMPARE(m_list->height(), 3 * 40.0 + 2.0);
    qreal top = 81.0;
    for (const char *name : {"LAN0", "LAN1", "WIFI"}) {
        const QQuickItem *item = row(QLatin1String(name));
        QVERIFY(item);
        QCOMPARE(item->height(), 40.0);
        QCOMPARE(item->mapToScene({}).y(), top);
        const QQuickItem *text = Operator::byText(m_list->contentItem(), QLatin1String(name));
        QCOMPARE(text->x(), 10.0);
        QVERIFY(qAbs(text->y() + text->height() / 2 - 20.0) <= 0.5);
        top += 40.0;
    }
    // Nothing is cut and nothing moves when there is nothing to scroll.
    const QQuickItem *view = m_list->contentItem();
    QCOMPARE(view->property("contentHeight").toReal(), view->height());
}

void TestComboBoxList::currentRowIsHighlighted()
{
    const auto colour = [this](const char *name) {
        return qobject_cast<QQuickRectangle *>(
                   Operator::byText(m_list->contentItem(), QLatin1String(name))->parentItem())
            ->color();
    };
    openList();
    QCOMPARE(colour("LAN0"), QColor(0xA8, 0xCD, 0xF1));
    QCOMPARE(colour("LAN1"), QColor(0xFF, 0xFF, 0xFF));
    Operator::tap(row(QStringLiteral("LAN1")));
    openList();
    QCOMPARE(colour("LAN0"), QColor(0xFF, 0xFF, 0xFF));
    QCOMPARE(colour("LAN1"), QColor(0xA8, 0xCD, 0xF1));
}

void TestComboBoxList::tapElsewhereCloses()
{
    openList();
    Operator::tap(m_scene->window(), m_scene->nowhere());
    QVERIFY(!m_list->isOpened());
    QCOMPARE(m_activated->count(), 0);
}

void TestComboBoxList::hidingTheScreenCloses()
{
    openList();
    m_scene->close();
    QVERIFY(!m_list->isVisible());
    m_scene->open();
    QVERIFY(!m_list->isVisible());
    QCOMPARE(m_activated->count(), 0);
    openList();
}

void TestComboBoxList::showingTheScreenDoesNotClose()
{
    m_scene->close();
    m_list->open();
    m_scene->open();
    QVERIFY(m_list->isOpened());
}

void TestComboBoxList::thousandEntriesScroll()
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names << QStringLiteral("Entry %1").arg(i);
    m_box->setStringListModel(names);
    openList();
    const QRectF list(m_list->background()->mapToScene({}), m_list->background()->size());
    QVERIFY(QRectF(QPointF(), m_scene->glass()->size()).contains(list));
    QVERIFY2(Operator::allByClass(m_list->contentItem(), "QQuickItemDelegate").size() < 100,
             "only rows near the visible part are made");
    const QPoint middle = list.center().toPoint();
    for (int i = 0; i < 3; ++i)
        swipe(middle + QPoint(0, 150), middle - QPoint(0, 150));
    QTRY_VERIFY(!m_list->contentItem()->property("moving").toBool());
    QVERIFY(m_list->isOpened());
    QCOMPARE(m_activated->count(), 0);
    // Whichever row has come under the finger is the one that is picked.
    const auto texts = Operator::allByClass(m_list->contentItem(), "QQuickText");
    const auto *text = *std::find_if(texts.begin(), texts.end(), [&middle](QQuickItem *item) {
        const QQuickItem *row = item->parentItem();
        const qreal top = row->mapToScene({}).y();
        return top <= middle.y() && middle.y() < top + row->height();
    });
    const int index = text->property("text").toString().section(QLatin1Char(' '), 1).toInt();
    QVERIFY(index > 20);
    Operator::tap(m_scene->window(), middle);
    QCOMPARE(m_box->currentIndex(), index);
    QCOMPARE(m_combo->displayText(), QStringLiteral("Entry %1").arg(index));
}

void TestComboBoxList::nearTheLowerEdge()
{
    m_box->setY(550);
    openList();
    const QRectF list(m_list->background()->mapToScene({}), m_list->background()->size());
    QVERIFY(QRectF(QPointF(), m_scene->glass()->size()).contains(list));
    QCOMPARE(list.height(), 3 * 40.0 + 2.0);
    Operator::tap(row(QStringLiteral("WIFI")));
    QCOMPARE(m_box->currentIndex(), 2);
}

void TestComboBoxList::languageSwitchWhileOpen()
{
    const auto show = [this] {
        m_box->setStringListModel({QCoreApplication::translate("CardNetwork", "Asia"),
                                   QCoreApplication::translate("CardNetwork", "Europe")});
    };
    connect(&QSP::GlobalInfo::instance(), &QSP::GlobalInfo::localeChanged, m_box, show);
    show();
    m_box->setCurrentIndex(1);
    openList();
    QVERIFY(row(QStringLiteral("Europe")));
    m_index->clear();
    QSP::GlobalInfo::switchLanguage(QLocale(QLocale::Chinese, QLocale::China));
    Operator::settle();
    QVERIFY(m_list->isOpened());
    QCOMPARE(m_box->currentIndex(), 1);
    QCOMPARE(m_index->count(), 0);
    QVERIFY(!row(QStringLiteral("Europe")));
    const QString europe = QCoreApplication::translate("CardNetwork", "Europe");
    QVERIFY(europe != QLatin1String("Europe"));
    QVERIFY(row(europe));
    QCOMPARE(m_combo->displayText(), europe);
}

void TestComboBoxList::modelReplacedWhileOpen()
{
    openList();
    m_box->setStringListModel({QStringLiteral("only")});
    Operator::settle();
    QCOMPARE(m_list->height(), 40.0 + 2.0);
    m_box->setStringListModel({});
    Operator::settle();
    m_box->setStringListModel({QStringLiteral("A"), QStringLiteral("B")});
    Operator::settle();
    QVERIFY(m_list->isOpened());
    Operator::tap(row(QStringLiteral("B")));
    QCOMPARE(m_box->currentIndex(), 1);
}

void TestComboBoxList::endsTheEditingOfAField()
{
    auto *ip = QSP::CIpInput::create(m_scene->engine(), m_scene->page());
    ip->setPosition({300, 40});
    ip->setSize({248, 35});
    Operator::settle();
    QSignalSpy edited(ip, &QSP::CIpInput::ipChangedByEdit);
    Operator::tap(ip->property("ipi0").value<QQuickItem *>());
    Operator::type(m_scene->window(), QStringLiteral("7"));
    QVERIFY(ControlScene::isKeyboardShown());
    openList();
    QVERIFY(!ControlScene::isKeyboardShown());
    QCOMPARE(edited.count(), 1);
    Operator::tap(row(QStringLiteral("LAN1")));
    QCOMPARE(m_box->currentIndex(), 1);
}

void TestComboBoxList::disabledStaysClosed()
{
    m_box->setEnabled(false);
    Operator::tap(m_box);
    QVERIFY(!m_list->isOpened());
    QCOMPARE(ControlScene::beeps(), 0);
}

void TestComboBoxList::disabledLooksIt()
{
    const auto text = m_combo->contentItem()->property("color").value<QColor>();
    m_box->setEnabled(false);
    QVERIFY(m_combo->contentItem()->property("color").value<QColor>() != text);
    QVERIFY(m_combo->indicator()->opacity() < 1.0);
    m_box->setEnabled(true);
    QCOMPARE(m_combo->contentItem()->property("color").value<QColor>(), text);
    QCOMPARE(m_combo->indicator()->opacity(), 1.0);
}

void TestComboBoxList::diesWhileOpen()
{
    openList();
    delete m_box;
    Operator::settle();
    QVERIFY(!Operator::byText(m_scene->glass(), QStringLiteral("WIFI")));
}

void TestComboBoxList::diesWhileDisabled()
{
    m_scene->page()->setEnabled(false);
    delete m_box;
    QCOMPARE(m_index->count() + m_activated->count(), 0);
}

void TestComboBoxList::screenDiesWhileOpen()
{
    openList();
    m_scene->end();
}

void TestComboBoxList::keyStorm()
{
    const QVector<int> codes = {Qt::Key_Up,   Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space,
                                Qt::Key_Home, Qt::Key_End,  Qt::Key_A,      Qt::Key_Insert, Qt::Key_Tab};
    QRandomGenerator random(5);
    connect(m_box, &ComboBox::activated, this, [this](int index) { QCOMPARE(index, m_box->currentIndex()); });
    for (int i = 0; i < 500; ++i) {
        if (i % 10 == 0) {
            Operator::tap(m_box);
            // Which it does not take by itself.
            m_combo->forceActiveFocus();
        }
        Operator::key(m_scene->window(), codes.at(random.bounded(codes.size())));
        QVERIFY(m_box->currentIndex() >= 0 && m_box->currentIndex() < 3);
    }
    QVERIFY(m_activated->count() > 0);
}

PANEL_TEST_MAIN(TestComboBoxList)

#include "test_combobox_list.moc"
