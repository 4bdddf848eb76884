#pragma once

#include "simulator/simulator.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QStringList>

#include <set>

/// What the service is asked, pass by pass of the event loop.
///
/// An answer counts until the next pass or the next write, which may have changed it.
class Questions : public QObject
{
public:
    Questions()
    {
        HmiSimulator::setGettersRecorded(true);
        HmiSimulator::clearJournal();
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
                &Questions::endPass);
    }
    ~Questions() override { HmiSimulator::setGettersRecorded(false); }

    /// Forgets what was asked so far.
    void begin()
    {
        HmiSimulator::clearJournal();
        m_all.clear();
        m_repeated.clear();
    }
    /// What was asked twice in a pass; empty, as it should be, when nothing was.
    QStringList repeated()
    {
        endPass();
        return m_repeated;
    }
    /// Everything the service was called for, but for the beep of a tap.
    QStringList all()
    {
        endPass();
        return m_all;
    }

private:
    void endPass()
    {
        std::set<std::string> asked;
        for (const HmiSimulator::Entry &entry : HmiSimulator::journal()) {
            if (entry.kind == HmiSimulator::Kind::Report || entry.operation == "beep")
                continue;
            const std::string text = entry.text();
            // A tap asks whether it is to beep.
            if (entry.operation != "isBuzzerOn")
                m_all << QString::fromStdString(text);
            if (entry.kind == HmiSimulator::Kind::Action)
                asked.clear();
            else if (!asked.insert(text).second)
                m_repeated << QString::fromStdString(text);
        }
        HmiSimulator::clearJournal();
    }

    QStringList m_all;
    QStringList m_repeated;
};
