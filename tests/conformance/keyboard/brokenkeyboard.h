#pragma once

#include "keyboard/standinkeyboard.h"

#include <QtQuick/QQuickItem>

#include <memory>

/// The stand-in keyboard with one fault, the one that KEYBOARD_FAULT names: the title of the check that must find it.
class BrokenKeyboard final : public QObject, public QVkbInterface
{
    Q_OBJECT

public:
    static bool is(const char *fault);

    BrokenKeyboard();

    void initialize(QQuickWindow *window, int z) override;
    QQuickPopup *popup() override;
    QQuickItem *item() override;
    void show(bool visible) override;
    void reserved1() override {}
    void setLayoutType(VkbLayoutType type) override;
    void reserved2() override {}
    bool isVisible() override;

    /// Sees all events of the application: keys are broken on their way to the field.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void breakPopup();
    void whenVisibleChanged();
    bool breakKey(QObject *watched, QKeyEvent *event);
    bool breakTouch(QEvent *event);

    std::unique_ptr<StandIn::StandInKeyboard> m_keyboard = std::make_unique<StandIn::StandInKeyboard>();
    /// Of the popup; kept, because events also come while the popup dies.
    QPointer<QQuickItem> m_item;
    VkbLayoutType m_type = VkbFullKeyboard;
    bool m_wasInitialized = false;
    bool m_isStriking = false;
    QPointer<QQuickItem> m_firstTarget;
};
