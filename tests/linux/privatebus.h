#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

/// A process that does not outlive a test that crashes.
class BoundProcess : public QProcess
{
protected:
    void setupChildProcess() override;
};

/// A message bus of the test's own, which it may take away and bring back at the same address.
class PrivateBus
{
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    QString address() const;
    /// Whether it runs from now on.
    bool start();
    void kill();

private:
    QTemporaryDir m_directory;
    BoundProcess m_daemon;
};
