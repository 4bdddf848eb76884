#pragma once

#include "controls/timeeditpopup.h"
#include "tests/classes/cardscene.h"

#include <QtQuick/private/qquicktextinput_p.h>

/// An editor as the card has it, over a screen.
struct TimeEditor {
    static const QStringList &fieldNames()
    {
        static const QStringList names{"Year", "Month", "Day", "Hour", "Minute", "Second"};
        return names;
    }
    static QDateTime someTime() { return {QDate(2024, 3, 9), QTime(14, 5, 7)}; }

    explicit TimeEditor(const QSize &size = {1024, 600})
        : scene(size)
        , popup(new QSP::TimeEditPopup(scene.root()))
        , confirmed(popup, &QSP::TimeEditPopup::dateTimeConfirmed)
    {
        popup->setX((scene.root()->width() - popup->width()) * 0.5);
        popup->setY((scene.root()->height() - popup->height()) * 0.5);
        popup->setCurrentDateTime(someTime());
        popup->open();
        QCoreApplication::processEvents();
    }

    QQuickTextInput *field(const QString &name) const
    {
        const auto isField = [&name](QQuickItem *item) { return item->objectName() == name; };
        return qobject_cast<QQuickTextInput *>(Operator::items(popup->contentItem(), isField).value(0));
    }
    QString text(const QString &name) const { return field(name)->text(); }
    QStringList texts() const
    {
        QStringList all;
        for (const QString &name : fieldNames())
            all << text(name);
        return all;
    }
    /// Puts the finger on a field and types over what it held.
    void fill(const QString &name, const QString &text) const
    {
        Operator::tap(field(name));
        QVERIFY(field(name)->hasActiveFocus());
        Operator::key(scene.window(), Qt::Key_Delete);
        Operator::type(scene.window(), text);
    }
    QQuickItem *button() const { return Operator::byClass(popup->contentItem(), "QSP::BeepButton"); }

    CardScene scene;
    QSP::TimeEditPopup *popup;
    QSignalSpy confirmed;
};
