#pragma once

#include <memory>

namespace HmiLinux {

class Root;
struct Config;

/// What makes the noise of a key beep.
class Sounder
{
public:
    Sounder() = default;
    virtual ~Sounder() = default;
    Sounder(const Sounder &) = delete;
    Sounder &operator=(const Sounder &) = delete;

    /// False when it could not be told.
    virtual bool sound(bool on) = 0;
};

/// The sounder of the configuration; null when there is none.
std::unique_ptr<Sounder> makeSounder(const Root &root, const Config &config);

} // namespace HmiLinux
