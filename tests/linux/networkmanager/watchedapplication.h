#pragma once

#include <QtGui/QGuiApplication>

/// The application of a screen, which measures how long its thread waits for somebody else while it handles one event:
/// for as long nothing moves on the glass. Neither its own work counts nor what a busy machine takes for others.
class WatchedApplication : public QGuiApplication
{
public:
    WatchedApplication(int &argc, char **argv);
    ~WatchedApplication() override;
    WatchedApplication(const WatchedApplication &) = delete;
    WatchedApplication &operator=(const WatchedApplication &) = delete;

    bool notify(QObject *receiver, QEvent *event) override;

    void forget() { m_longest = 0; }
    /// In nanoseconds.
    qint64 longestWait() const { return m_longest; }

private:
    struct Moment;
    Moment now() const;

    int m_schedule;
    int m_depth = 0;
    qint64 m_longest = 0;
};
