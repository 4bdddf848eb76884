#pragma once

#include "simulator/simulator.h"
#include "tests/screen/touchcheck.h"

#include <memory>

/// What the tests of touch areas share: a panel on which everything can be operated, and the way to its pages.
class TouchAreaTest : public PanelTest
{
    Q_OBJECT

protected:
    enum MenuEntry { General, Network, Language, Version };

    /// One row for each size of glass, as the column "size".
    static void addSizes();
    static QQuickItem *alias(const QQuickItem *item, const char *name);

    void build(const QSize &size);
    /// The same with the size of the row.
    void build();
    /// Checks what can be touched now: at least so many controls (of which a low glass may not show all), or it is
    /// not what was meant.
    void look(const char *state, int controls);
    /// The same wherever the page can be scrolled to.
    void lookScrolled(const char *state, int controls);

    void tapMenu(MenuEntry entry);
    void returnToMenu();
    void select(const char *adapter);
    /// As far as the page goes.
    void scrollTo(qreal y);
    /// As far as it takes to see the item.
    void reveal(const QQuickItem *item);
    QQuickItem *pool() const { return alias(m_fixture->root(), "cardPool"); }
    QQuickItem *card(const char *className) const { return m_fixture->card(className); }
    bool isShown(const char *text) const;

    qreal longestWay() const;

    /// What the screens to be built are asked for.
    QVariantMap m_options = compactOptions();
    std::unique_ptr<ScreenFixture> m_fixture;
    std::unique_ptr<TouchCheck> m_check;

private slots:
    void init();
    void cleanup();
};
