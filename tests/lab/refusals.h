#pragma once

#include <QtCore/QStringList>

/// Keeps the warnings that a test is about: as long as it lives they are collected, and fail no test.
class Refusals
{
public:
    Refusals();
    ~Refusals();
    Refusals(const Refusals &) = delete;
    Refusals &operator=(const Refusals &) = delete;

    /// Whether a warning with @p words comes, and nothing else has come.
    static bool waitFor(const char *words);
    /// What has come, a line each.
    static QString told();
};
