#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QStringList>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

#include <functional>

/// Somebody in front of the glass: finds things by what they show, and taps them.
///
/// What is looked for and not there is kept as a problem; the visit goes on.
class Visitor
{
public:
    explicit Visitor(QQuickWindow *window) : m_window(window) {}

    QQuickWindow *window() const { return m_window; }

    /// A text of the screen in the language that it has now.
    static QString said(const char *context, const char *english);

    /// Whether @p text can be read anywhere.
    bool sees(const QString &text) const;
    /// Whether @p text is written on a button.
    bool seesButton(const QString &text) const;
    /// Waits for @p text to appear; a problem when it does not.
    void waitFor(const QString &text);

    /// Waits for one of both to appear; a problem when none does.
    void waitForEither(const QString &one, const QString &other);

    /// Waits until the button with @p text can be tapped; a problem when it cannot.
    void waitUntilEnabled(const QString &text);
    /// Waits for @p text to go; a problem when it does not.
    void waitUntilGone(const QString &text);

    /// Taps what carries @p text: a button before a mere text.
    void tapText(const QString &text);
    /// Taps the @p index-th visible item of a class, scrolled to if need be; inside an item of
    /// the class @p within, when that is given.
    void tapClass(const char *className, int index = 0, const char *within = nullptr);
    /// Taps the visible item that goes by @p objectName.
    void tapName(const QString &objectName);
    /// Taps the item that the first visible item of a class calls @p property.
    void tapProperty(const char *className, const char *property);
    /// Taps whatever is there.
    void tapAt(const QPoint &point);
    /// Taps the keys of the on-screen keyboard one after the other.
    void typeOnScreen(const QString &characters);

    /// Presses the key beside the glass that leads back to the operator's page.
    void leaveSettings();

    /// Waits until the item of tapProperty() can be tapped; a problem when it cannot.
    void waitForProperty(const char *className, const char *property);

    /// Lets the panel do what is to be done now.
    static void pause(int milliseconds = 25);

    /// The problems since the last call.
    QStringList takeProblems();
    void complain(const QString &problem) { m_problems << problem; }

private:
    QQuickItem *glass() const { return m_window->contentItem(); }
    QQuickItem *itemOf(const char *className, const char *property) const;
    QQuickItem *buttonOf(const QString &text) const;
    void tap(QQuickItem *item, const QString &name);
    bool waitFor(const std::function<bool()> &condition) const;
    void bringIntoView(QQuickItem *item);
    void drag(const QPoint &from, const QPoint &to);

    QQuickWindow *m_window;
    QStringList m_problems;
    QPoint m_lastTap;
    QElapsedTimer m_sinceLastTap;
};
