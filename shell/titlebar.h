#pragma once

#include <QtCore/QObject>

class QQuickItem;
class QQuickText;

namespace QSP {

class BeepButton;
class Menu;

/// The bar at the top: the title of the page, centred in what the menu leaves, and on a narrow screen the button
/// that leads back to the menu.
class TitleBar : public QObject
{
    Q_OBJECT

public:
    /// @p bar and @p text are those of the document of @p root.
    TitleBar(QQuickItem *bar, QQuickText *text, Menu *menu, QQuickItem *root);

    QQuickItem *bar() const { return m_bar; }
    /// The button that leads to the menu, or null when it was not needed yet.
    BeepButton *returnButton() const { return m_returnButton; }

    /// Gives the bar its height and the title its place.
    void adjustTitle();
    void setTitle(const QString &title);
    /// Shows the button that leads to the menu, or hides it; it is made when it is shown first.
    void setReturnButtonShown(bool shown);
    void addReturnButton();

signals:
    void returnTapped();

private:
    void placeTitle();

    QQuickItem *m_bar;
    QQuickText *m_text;
    Menu *m_menu;
    QQuickItem *m_root;
    BeepButton *m_returnButton = nullptr;
};

} // namespace QSP
