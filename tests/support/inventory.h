#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstddef>
#include <map>

/// What a program holds at one moment, for a comparison with what it holds later.
///
/// All objects of the toolkit count that live in the calling thread, whoever owns them: what lost its owner is
/// not to be missed. They are followed from watch() on, which is to be called before the first is made.
struct Inventory {
    /// Begins to follow the objects of this process.
    static void watch();
    /// To be taken when what was begun has ended: what is to be deleted later is deleted first. What is below
    /// @p apart does not count.
    static Inventory take(const QObject *apart = nullptr);

    /// Objects by their class, items among them; those of a document count as what they are in C++.
    std::map<QString, int> objects;
    /// From a signal to whoever listens; those of bindings are not among them.
    int connections = 0;
    /// Those that run, by the class of the object that is one or has one; those of the toolkit's caches are not
    /// among them.
    std::map<QString, int> timers;
    int openPopups = 0;
    /// What was allocated and not freed, in bytes; under a sanitizer by its own book.
    std::size_t heap = 0;

    int objectCount() const;
    int timerCount() const;
    /// What is more, and how much; empty when nothing is. The heap is left to the caller.
    QStringList growthSince(const Inventory &before) const;
    /// In bytes; 0 when it did not grow.
    std::size_t heapGrowthSince(const Inventory &before) const;
};
