#pragma once

#include "controls/cipinput.h"
#include "shell/base/screenroot.h"
#include "tests/classes/cardscene.h"

/// A real screen in a window of its own, for trying single controls on it.
///
/// Controls go onto page(), an empty page over the cards. The panel's keys beep.
class ControlScene : public CardScene
{
public:
    explicit ControlScene(const QSize &size = {1024, 600})
        : CardScene(onAPanelThatBeeps(size)), m_page(new QQuickItem(root()))
    {
        m_page->setSize(size);
    }

    QQuickItem *page() const { return m_page; }

    static bool isKeyboardShown() { return QSP::VkbManager::instance().isVisible(); }
    /// A point of the page where nothing is.
    QPoint nowhere() const { return {window()->width() - 5, window()->height() - 5}; }

    static int beeps() { return static_cast<int>(HmiSimulator::calls("beep").size()); }

private:
    /// The panel must be so before the screen is there.
    static QSize onAPanelThatBeeps(const QSize &size)
    {
        HmiSimulator::reset();
        HmiSimulator::setBuzzerOn(true);
        return size;
    }

    QQuickItem *m_page;
};
