#include "controls/beepbutton.h"
#include "controls/dialog.h"
#include "shell/base/multilingualtext.h"
#include "tests/classes/controlscene.h"

#include <QtQml/QQmlComponent>
#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>
#include <QtQuick/private/qquicktextinput_p.h>

using QSP::Dialog;

class TestDialog : public PanelTest
{
    Q_OBJECT

private slots:
    void init() { beginWatch(); }
    void cleanup();
    void sizesFollowTheScreen_data();
    void sizesFollowTheScreen();
    void lookAtIt();
    void sameTitleTwice();
    void titleIsPlainText();
    void longTitleEndsBeforeTheButton();
    void bodyHeightsDiffer();
    void heightAloneMovesNothing();
    void widthsAreWholePixels();
    void bodyComesAndGoes();
    void closeButtonIsReused();
    void closesByItsButton_data();
    void closesByItsButton();
    void closeButtonEndsTheEditing();
    void closesWithTheScreen();
    void closesWhenTheScreenIsShown();
    void textsFollowTheLanguage();
    void diesWhileOpen();
    void screenDiesWhileOpen();
    void withoutAScreen();
    void tinyScreen();
    void fromADocument();

private:
    // What a dialog is made of, in the order of its making.
    struct Parts {
        QQuickItem *bar;
        QQuickText *title;
        QQuickRectangle *line;
        QQuickRectangle *background;
    };

    void build(const QSize &screen = {1920, 1080});
    Parts parts() const;
    QSP::BeepButton *closeButton() const;
    void show();

    std::unique_ptr<ControlScene> m_scene;
    Dialog *m_dialog = nullptr;
};

void TestDialog::cleanup()
{
    m_scene.reset();
    endWatch();
}

void TestDialog::build(const QSize &screen)
{
    m_scene = std::make_unique<ControlScene>(screen);
    m_dialog = new Dialog(m_scene->page());
}

TestDialog::Parts TestDialog::parts() const
{
    QQuickItem *bar = nullptr;
    QQuickRectangle *line = nullptr;
    const auto children = m_dialog->contentItem()->childItems();
    for (QQuickItem *child : children) {
        if (auto *rectangle = qobject_cast<QQuickRectangle *>(child))
            line = line ? line : rectangle;
        else if (!bar)
            bar = child;
    }
    Q_ASSERT(bar && line);
    return {bar, bar->findChild<QQuickText *>(), line,
            qobject_cast<QQuickRectangle *>(m_dialog->background())};
}

QSP::BeepButton *TestDialog::closeButton() const
{
    const auto buttons = m_dialog->contentItem()->findChildren<QSP::BeepButton *>();
    return buttons.size() == 1 ? buttons.first() : nullptr;
}

void TestDialog::show()
{
    m_dialog->setX(100);
    m_dialog->setY(80);
    m_dialog->setWidth(426);
    m_dialog->setHeight(243);
    m_dialog->open();
    Operator::settle();
    QVERIFY(m_dialog->isOpened());
}

void TestDialog::sizesFollowTheScreen_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<qreal>("radius");
    QTest::addColumn<qreal>("bar");
    QTest::addColumn<int>("font");
    QTest::addColumn<int>("icon");
    QTest::addColumn<qreal>("margin");
    QTest::newRow("landscape 1920") << QSize(1920, 1080) << 15.0 << 68.0 << 34 << 37 << 22.508;
    QTest::newRow("landscape 960") << QSize(960, 600) << 7.5 << 34.0 << 17 << 18 << 11.254;
    QTest::newRow("landscape 1024") << QSize(1024, 600) << 8.0 << 1024.0 / 1920.0 * 68.0 << 18 << 19
                                    << 1024.0 / 1920.0 * 68.0 * 0.331;
    QTest::newRow("portrait") << QSize(480, 800) << 8.0 << 36.0 << 18 << 19 << 11.916;
    QTest::newRow("large portrait") << QSize(1080, 1920) << 8.0 << 36.0 << 18 << 19 << 11.916;
}

void TestDialog::sizesFollowTheScreen()
{
    QFETCH(QSize, screen);
    QFETCH(qreal, radius);
    QFETCH(qreal, bar);
    QFETCH(int, font);
    QFETCH(int, icon);
    QFETCH(qreal, margin);
    build(screen);
    m_dialog->setTitle(QStringLiteral("Ping Test"));
    m_dialog->setEnableCloseButton(true);
    show();
    const Parts p = parts();
    QCOMPARE(p.background->radius(), radius);
    QCOMPARE(p.bar->height(), bar);
    QCOMPARE(p.line->y(), qreal(qRound(bar)));
    QCOMPARE(p.title->font().pixelSize(), font);
    QCOMPARE(QQuickItemPrivate::get(p.title)->anchors()->leftMargin(), margin);
    QVERIFY(qAbs(p.title->x() - margin) < 1.0);
    const auto *image = closeButton()->findChild<QQuickImage *>();
    QCOMPARE(image->sourceSize(), QSize(icon, icon));
    QCOMPARE(image->source(), QUrl(QStringLiteral("qrc:/setting/icons/close.png")));
    QCOMPARE(closeButton()->size(), QSizeF(bar, bar));
    QCOMPARE(closeButton()->x() + closeButton()->width(), p.bar->width());
}

void TestDialog::lookAtIt()
{
    build();
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->z(), qreal(ControlScene::popupZ));
    const Parts p = parts();
    QCOMPARE(p.background->color(), QColor(Qt::white));
    QCOMPARE(p.background->border()->width(), 1.0);
    QCOMPARE(p.background->border()->color(), QColor(230, 231, 233));
    QCOMPARE(p.background->z(), -1.0);
    QCOMPARE(p.line->height(), 1.0);
    QCOMPARE(p.line->color(), QColor(230, 231, 233));
    QCOMPARE(p.title->color(), QColor(134, 144, 156));
    QVERIFY(!m_dialog->enableCloseButton());
    QVERIFY(!closeButton());
}

void TestDialog::sameTitleTwice()
{
    build();
    QSignalSpy changed(m_dialog, &Dialog::titleChanged);
    m_dialog->setTitle(QStringLiteral("Wi-Fi"));
    m_dialog->setTitle(QStringLiteral("Wi-Fi"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_dialog->title(), QStringLiteral("Wi-Fi"));
    QCOMPARE(parts().title->font().pixelSize(), 34);
    QCOMPARE(parts().title->font().family(), QGuiApplication::font().family());
    m_dialog->setTitle(QString());
    QCOMPARE(changed.count(), 2);
}

void TestDialog::titleIsPlainText()
{
    build();
    m_dialog->setTitle(QStringLiteral("<b>cafe</b>"));
    QCOMPARE(m_dialog->title(), QStringLiteral("<b>cafe</b>"));
    show();
    QVERIFY(!parts().title->property("truncated").toBool());
    QCOMPARE(parts().title->textFormat(), QQuickText::PlainText);
}

void TestDialog::longTitleEndsBeforeTheButton()
{
    build();
    m_dialog->setEnableCloseButton(true);
    m_dialog->setTitle(QString(5000, QLatin1Char('W')));
    show();
    const Parts p = parts();
    QVERIFY(p.title->truncated());
    QVERIFY(p.title->x() + p.title->contentWidth() <= closeButton()->x());
    m_dialog->setEnableCloseButton(false);
    QVERIFY(p.title->x() + p.title->width() <= p.bar->width());
}

void TestDialog::bodyHeightsDiffer()
{
    build();
    m_dialog->setWidth(426);
    m_dialog->setHeight(243);
    auto *body = new QQuickItem;
    m_dialog->setBodyItem(body);
    QCOMPARE(body->position(), QPointF(1.0, 69.0));
    QCOMPARE(body->size(), QSizeF(424.0, 243.0 - 68.0 - 1.0));
    m_dialog->setWidth(500);
    QCOMPARE(body->size(), QSizeF(498.0, 243.0 - 68.0 - 10.0));
    QCOMPARE(parts().bar->width(), 498.0);
    QCOMPARE(parts().line->width(), 500.0);
}

void TestDialog::heightAloneMovesNothing()
{
    build();
    m_dialog->setWidth(426);
    m_dialog->setHeight(243);
    auto *body = new QQuickItem;
    m_dialog->setBodyItem(body);
    m_dialog->setHeight(400);
    QCOMPARE(body->height(), 243.0 - 68.0 - 1.0);
}

void TestDialog::widthsAreWholePixels()
{
    build();
    m_dialog->setHeight(243);
    m_dialog->setBodyItem(new QQuickItem);
    m_dialog->setWidth(425.9);
    QCOMPARE(parts().bar->width(), 423.0);
    QCOMPARE(parts().line->width(), 425.0);
    QCOMPARE(m_dialog->bodyItem()->width(), 423.0);
}

void TestDialog::bodyComesAndGoes()
{
    build();
    QSignalSpy changed(m_dialog, &Dialog::bodyItemChanged);
    QCOMPARE(m_dialog->bodyItem(), nullptr);
    m_dialog->setBodyItem(nullptr);
    QCOMPARE(changed.count(), 0);
    auto *body = new QQuickItem;
    m_dialog->setBodyItem(body);
    m_dialog->setBodyItem(body);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(body->parentItem(), m_dialog->contentItem());
    QCOMPARE(body->parent(), m_dialog->contentItem());
    m_dialog->setBodyItem(nullptr);
    QCOMPARE(changed.count(), 2);
    m_dialog->setBodyItem(body);
    delete body;
    QCOMPARE(m_dialog->bodyItem(), nullptr);
    show();
}

void TestDialog::closeButtonIsReused()
{
    build();
    QSignalSpy changed(m_dialog, &Dialog::enableCloseButtonChanged);
    m_dialog->setEnableCloseButton(false);
    QCOMPARE(changed.count(), 0);
    show();
    m_dialog->setEnableCloseButton(true);
    m_dialog->setEnableCloseButton(true);
    QPointer<QSP::BeepButton> button = closeButton();
    QVERIFY(button && button->isVisible());
    m_dialog->setEnableCloseButton(false);
    QVERIFY(button && !button->isVisible());
    m_dialog->setEnableCloseButton(true);
    QCOMPARE(closeButton(), button.data());
    QVERIFY(button->isVisible());
    QCOMPARE(changed.count(), 3);
}

void TestDialog::closesByItsButton_data()
{
    QTest::addColumn<bool>("byTouch");
    QTest::newRow("click") << false;
    QTest::newRow("touch") << true;
}

void TestDialog::closesByItsButton()
{
    QFETCH(bool, byTouch);
    build({1024, 600});
    m_dialog->setModal(true);
    m_dialog->setClosePolicy(QQuickPopup::NoAutoClose);
    m_dialog->setEnableCloseButton(true);
    show();
    Operator::tap(m_scene->window(), m_scene->nowhere());
    QVERIFY(m_dialog->isOpened());
    if (byTouch)
        Operator::touch(closeButton());
    else
        Operator::tap(closeButton());
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(ControlScene::beeps(), 1);
    show();
}

void TestDialog::closeButtonEndsTheEditing()
{
    build({1024, 600});
    m_dialog->setEnableCloseButton(true);
    show();
    auto *ip = QSP::CIpInput::create(m_scene->engine(), m_dialog->contentItem());
    ip->setPosition({20, 50});
    ip->setSize({248, 35});
    Operator::settle();
    Operator::tap(ip->property("ipi0").value<QQuickItem *>());
    QVERIFY(ControlScene::isKeyboardShown());
    Operator::tap(closeButton());
    QVERIFY(!ControlScene::isKeyboardShown());
    QVERIFY(!m_dialog->isVisible());
}

void TestDialog::closesWithTheScreen()
{
    build();
    show();
    m_scene->close();
    QVERIFY(!m_dialog->isVisible());
    m_scene->open();
    QVERIFY(!m_dialog->isVisible());
}

void TestDialog::closesWhenTheScreenIsShown()
{
    build();
    m_scene->close();
    m_dialog->open();
    QVERIFY(m_dialog->isVisible());
    m_scene->open();
    QVERIFY(!m_dialog->isVisible());
}

void TestDialog::textsFollowTheLanguage()
{
    build({1024, 600});
    auto *body = new QQuickItem;
    auto *text = new QQuickText(body);
    QSP::setMultilingualText(text, [] { return QCoreApplication::translate("CardNetwork", "Europe"); });
    const auto retitle = [this] { m_dialog->setTitle(QCoreApplication::translate("CardNetwork", "Asia")); };
    retitle();
    connect(&QSP::GlobalInfo::instance(), &QSP::GlobalInfo::localeChanged, m_dialog, retitle);
    m_dialog->setBodyItem(body);
    show();
    QCOMPARE(Operator::visibleTexts(m_dialog->contentItem()),
             QStringList({QStringLiteral("Asia"), QStringLiteral("Europe")}));
    QSP::GlobalInfo::switchLanguage(QLocale(QLocale::Chinese, QLocale::China));
    QVERIFY(m_dialog->isOpened());
    const QStringList chinese = Operator::visibleTexts(m_dialog->contentItem());
    QCOMPARE(chinese.size(), 2);
    for (const QString &word : chinese)
        QVERIFY2(word.at(0).script() == QChar::Script_Han, qPrintable(word));
}

void TestDialog::diesWhileOpen()
{
    build();
    m_dialog->setModal(true);
    m_dialog->setEnableCloseButton(true);
    m_dialog->setBodyItem(new QQuickItem);
    show();
    delete m_dialog;
    Operator::settle();
    m_scene->close();
}

void TestDialog::screenDiesWhileOpen()
{
    build();
    show();
    m_scene->end();
}

void TestDialog::withoutAScreen()
{
    const std::unique_ptr<Dialog> dialog = std::make_unique<Dialog>();
    dialog->setTitle(QStringLiteral("Ping Test"));
    dialog->setWidth(100);
    dialog->setHeight(100);
    QCOMPARE(dialog->title(), QStringLiteral("Ping Test"));
}

void TestDialog::tinyScreen()
{
    build({1, 1});
    m_dialog->setTitle(QStringLiteral("Ping Test"));
    m_dialog->setEnableCloseButton(true);
    m_dialog->setBodyItem(new QQuickItem);
    m_dialog->setWidth(1);
    m_dialog->setHeight(1);
    m_dialog->open();
    Operator::settle();
    QVERIFY(m_dialog->isOpened());
}

void TestDialog::fromADocument()
{
    build();
    Dialog::registerType();
    Dialog::registerType();
    QQmlComponent component(m_scene->engine());
    component.setData("import QtQuick 2.15\nimport QQuickSystemSet 1.0\n"
                      "Item { property Dialog d: Dialog { width: 426; height: 243; title: 'Ping Test'\n"
                      "enableCloseButton: true; bodyItem: Item { objectName: 'body' } } }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    auto *dialog = object->property("d").value<Dialog *>();
    QVERIFY(dialog);
    QCOMPARE(dialog->title(), QStringLiteral("Ping Test"));
    QVERIFY(dialog->enableCloseButton());
    QCOMPARE(dialog->bodyItem()->objectName(), QStringLiteral("body"));
    QVERIFY(!dialog->isVisible());
}

PANEL_TEST_MAIN(TestDialog)

#include "test_dialog.moc"
