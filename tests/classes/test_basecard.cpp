#include "controls/basecard.h"

#include "controls/qmlproperty.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>

class TestBaseCard : public PanelTest
{
    Q_OBJECT

private slots:
    void whiteRoundedAndEightyHigh();
    void offersNothingOfItsOwn();
    void plainObjectOffersNothing();
};

void TestBaseCard::whiteRoundedAndEightyHigh()
{
    QQuickItem parent;
    const QSP::BaseCard card(&parent);
    QCOMPARE(card.parentItem(), &parent);
    QCOMPARE(card.color(), QColor(0xFF, 0xFF, 0xFF));
    QCOMPARE(card.height(), 80.0);
    QCOMPARE(card.radius(), 10.0);
}

void TestBaseCard::offersNothingOfItsOwn()
{
    const QMetaObject &meta = QSP::BaseCard::staticMetaObject;
    QVERIFY(meta.inherits(&QQuickRectangle::staticMetaObject));
    QCOMPARE(meta.propertyOffset(), meta.propertyCount());
    QCOMPARE(meta.methodOffset(), meta.methodCount());
}

void TestBaseCard::plainObjectOffersNothing()
{
    QObject parent;
    const auto *object = new QmlProperty(&parent);
    QCOMPARE(object->parent(), &parent);
    const QMetaObject *meta = object->metaObject();
    QCOMPARE(meta->className(), "QmlProperty");
    QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta->propertyOffset(), meta->propertyCount());
    QCOMPARE(meta->methodOffset(), meta->methodCount());
}

PANEL_TEST_MAIN(TestBaseCard)

#include "test_basecard.moc"
