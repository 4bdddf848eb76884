#pragma once

#include <QtCore/QPointer>

#include "keyboardpopup.h"
#include "qvkb/qvkbpluginloader.h"

namespace StandIn {

/// The keyboard of one window. It outlives the window: without it, it has no
/// popup, shows nothing and can be made ready for another one.
class StandInKeyboard final : public QVkbInterface
{
public:
    void initialize(QQuickWindow *window, int z) override;
    QQuickPopup *popup() override;
    QQuickItem *item() override;
    void show(bool visible) override;
    void reserved1() override;
    void setLayoutType(VkbLayoutType type) override;
    void reserved2() override;
    bool isVisible() override;

private:
    QPointer<KeyboardPopup> m_popup;
    VkbLayoutType m_type = VkbFullKeyboard;
};

} // namespace StandIn
