#pragma once

#include <QtCore/QtGlobal>

/// What a process holds at one moment.
struct Usage {
    /// Begins the process again, unless it has been, without the store of freed pieces that each thread keeps: they count as
    /// allocated. The first thing in main().
    static void countExactly(char **argv);
    static Usage now();

    qint64 heap =
        0; ///< bytes that are allocated and not given back; 0 under a sanitizer, which counts its own way
    qint64 resident = 0; ///< bytes of memory, with what the allocator keeps for later
    int files = 0;
    int threads = 0;
};
