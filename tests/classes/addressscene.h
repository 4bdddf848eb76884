#pragma once

#include "controls/cmacinput.h"
#include "tests/classes/controlscene.h"

#include <QtQuick/private/qquicktextinput_p.h>

/// A real screen with address inputs on it, and the hand that fills them in.
class AddressScene : public ControlScene
{
public:
    using ControlScene::ControlScene;

    /// An input on @p parent, on the page without one.
    QSP::CIpInput *addIp(qreal y, QQuickItem *parent = nullptr)
    {
        return place(QSP::CIpInput::create(engine(), parent ? parent : page()), y);
    }
    QSP::CMacInput *addMac(qreal y, QQuickItem *parent = nullptr)
    {
        return place(QSP::CMacInput::create(engine(), parent ? parent : page()), y);
    }

    static QQuickTextInput *box(const QSP::CIpInput *ip, int i)
    {
        return ip->property(qPrintable(QStringLiteral("ipi%1").arg(i))).value<QQuickTextInput *>();
    }
    static QQuickTextInput *field(const QSP::CMacInput *mac)
    {
        return mac->property("input").value<QQuickTextInput *>();
    }
    static QString shown(const QSP::CIpInput *ip)
    {
        return QStringLiteral("%1.%2.%3.%4")
            .arg(box(ip, 0)->text(), box(ip, 1)->text(), box(ip, 2)->text(), box(ip, 3)->text());
    }

    void key(int code) { Operator::key(window(), code); }
    void type(const QString &text) { Operator::type(window(), text); }
    void enter(const QSP::CIpInput *ip, int i, const QString &digits)
    {
        Operator::tap(box(ip, i));
        type(digits);
    }
    /// Over what stands in the field, from its first digit.
    void enter(const QSP::CMacInput *mac, const QString &digits)
    {
        Operator::tap(field(mac));
        key(Qt::Key_Home);
        type(digits);
    }

private:
    template <class Input> static Input *place(Input *input, qreal y)
    {
        input->setPosition({20, y});
        input->setSize({248, 35});
        Operator::settle();
        return input;
    }
};
