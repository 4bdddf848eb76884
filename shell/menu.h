#pragma once

#include "shell/approotitem.h"

#include <functional>
#include <map>

class QQuickText;

namespace QSP {

class BeepButton;

/// The menu: a button for each page that has one, a line, and at the bottom what acts at once, which is Exit
/// in a runtime that one leaves by it and Reboot in any other.
///
/// It tells which button was tapped; what follows is the root's business.
class Menu : public QObject
{
    Q_OBJECT

public:
    using Entry = AppRootItem::MenuIndex;

    /// @p bar is the menu of the document of @p root, @p caption the text above it.
    Menu(QQuickRectangle *bar, QQuickText *caption, QQuickItem *root);

    QQuickItem *bar() const;
    /// What the bar takes of the width of the screen while it is shown, and 0 else.
    qreal shownWidth() const;
    /// Whether the bar is there for the operator; the screen itself may be hidden.
    bool isShown() const { return m_isShown; }
    void setShown(bool shown);

    /// Gives the bar its colour and its width, and fills it; without the pages that @p isMissing tells.
    void build(const std::function<bool(Entry)> &isMissing);
    /// A button without text and icon; null, after a warning, when its document does not load.
    QQuickItem *createMenuButton(QQuickItem *parent);
    void addMenuButton(Entry entry);
    void addSeparatorLine();
    /// Marks the button that stands for a page, or takes the mark from it.
    void highlightMenuButton(Entry page, bool on);

signals:
    void shownWidthChanged();
    void tapped(QSP::AppRootItem::MenuIndex entry);

private:
    QQuickItem *addCell();
    void addArrow(QQuickItem *button);

    QQuickRectangle *m_bar;
    QQuickItem *m_column;
    QQuickItem *m_bottomContainer;
    QQuickItem *m_root;
    const bool m_isNarrow;
    const bool m_isCompact;
    QQuickItem *m_halfRow = nullptr; ///< has room for one more entry
    std::map<Entry, BeepButton *> m_buttons;
    bool m_isShown = true;
};

} // namespace QSP
