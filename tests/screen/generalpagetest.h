#pragma once

#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"
#include "tests/support/paneltest.h"

#include <memory>

/// What the tests of the General page share: the screen with that page on it, and where its parts are.
class GeneralPageTest : public PanelTest
{
    Q_OBJECT

protected:
    /// One row for each size of glass, as the column "size".
    static void addSizes();

    void build(const QSize &size);
    QQuickItem *card(const char *name) const { return m_fixture->card(name); }
    QQuickItem *named(const QString &name) const { return Operator::byName(m_fixture->glass(), name); }
    QQuickItem *field(const QString &name) const { return named(name); }
    QQuickItem *keyboardKey(const QString &name) const { return named("vkbKey_" + name); }
    bool isKeyboardShown() const { return named(QStringLiteral("vkbKeyboard")) != nullptr; }
    void openEditor() const;

    std::unique_ptr<ScreenFixture> m_fixture;

private slots:
    void init();
    void cleanup();
};
