#pragma once

#include "qvkb/qvkbpluginloader.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QTouchDevice>
#include <QtQuick/private/qquicktextinput_p.h>
#include <QtQuick/QQuickWindow>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

/// A window with a focused field and the keyboard shown over its lower part.
/// Fingers and mouse reach the keyboard through the window, as from a panel.
class KeyboardFixture
{
public:
    static constexpr int PopupZ = 7;

    explicit KeyboardFixture(const QSize &size = QSize(800, 480));

    /// Shows the keyboard with the keys of @p type; other items stay usable.
    void show(VkbLayoutType type);

    /// The key called @p name ("a", "enter"), or null when the page has none.
    QQuickItem *key(const QString &name) const;
    QQuickItem *key(QChar character) const;
    /// Names of the keys on the glass, sorted.
    QStringList keyNames() const;
    QVector<QQuickItem *> keys() const;

    /// The device of all touches of the tests.
    static QTouchDevice *touchScreen();

    void tap(const QString &name);   ///< with a finger
    void click(const QString &name); ///< with the mouse
    void touchDown(int id, const QPoint &point);
    void touchMove(int id, const QPoint &point);
    void touchUp(int id, const QPoint &point);
    QPoint center(const QString &name) const;

    QQuickItem *keyboardItem() const { return keyboard->item(); }

    QQuickWindow window;
    QQuickTextInput *field;
    QVkbInterface *keyboard;
};

/// Records the key events that reach an item; none is passed on.
class KeyRecorder : public QQuickItem
{
    Q_OBJECT

public:
    explicit KeyRecorder(QQuickItem *parent) : QQuickItem(parent) {}

    struct Stroke {
        QEvent::Type type;
        int key;
        QString text;
        Qt::KeyboardModifiers modifiers;
        bool autoRepeat;
    };
    QVector<Stroke> strokes;

protected:
    void keyPressEvent(QKeyEvent *event) override { record(event); }
    void keyReleaseEvent(QKeyEvent *event) override { record(event); }

private:
    void record(QKeyEvent *event);
};
