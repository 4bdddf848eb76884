#pragma once

#include "plugin/isystemset.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QJsonObject>
#include <QtCore/QLibrary>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

#include <functional>
#include <memory>
#include <vector>

/// What every bench runs in: a window with Qt Quick Controls imported, as a
/// panel's runtime has it, and on demand the settings screen in it.
class BenchHost
{
public:
    /// Sets the environment that makes runs comparable. Before the application object.
    static void prepareEnvironment();
    /// Sets the font as the demo host does, and loads it: a host has shown
    /// texts of its own before. After the application object.
    static void prepareFont();

    explicit BenchHost(const QSize &size = {1024, 600});
    ~BenchHost();

    /// What a host has on its glass without the screen: nothing, which needs Qt Quick or also its controls, or with
    /// them forty texts in as many fonts as the screen's first page has.
    enum class Floor { Quick, Controls, Texts };
    /// Shows it; returns when its first frame was painted.
    void showFloor(Floor floor = Floor::Controls);
    /// Loads the plug-in and builds the screen, hidden.
    void loadScreen();
    /// open(), and returns when the first frame with it was painted.
    void open();

    QQuickItem *root() const { return m_root; }
    QQuickItem *glass() const { return m_window->contentItem(); }
    ISystemSet *screen() const { return m_screen.get(); }
    QQuickWindow *window() const { return m_window.get(); }

    /// Runs @p action and the event loop until the next frame after it was
    /// painted; the nanoseconds that took. Ends the bench when no frame comes in a minute: callgrind makes all of it slow.
    qint64 untilPainted(const std::function<void()> &action);
    /// A click in the middle of the visible text that reads @p text, in the given part of the screen: the
    /// nanoseconds from the click until what it does was painted, as of untilPainted(). Looking for the text is
    /// not in them.
    qint64 tapText(QQuickItem *below, const QString &text);
    QQuickItem *menu() const;

    /// Memory that this process alone has and has written to, in KiB. What is only read is not in it: whether that is
    /// this process's alone depends on who else runs.
    static qint64 privateMemory();
    static double median(std::vector<double> values);
    /// Prints one line of JSON.
    static void print(const QJsonObject &figures);

private:
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<QObject> m_floor;
    std::shared_ptr<ISystemSet> m_screen;
    QLibrary m_library;
    QQuickItem *m_root = nullptr;
    QSize m_size;
};
