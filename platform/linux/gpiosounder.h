#pragma once

#include "linux/root.h"
#include "linux/sounder.h"

namespace HmiLinux {

/// A sounder behind a file into which 1 and 0 are written: a GPIO's value, or an LED's brightness.
class GpioSounder : public Sounder
{
public:
    GpioSounder(Root root, QString file);
    ~GpioSounder() override;

    bool sound(bool on) override;

private:
    Root m_root;
    QString m_file;
    bool m_sounds = false;
};

} // namespace HmiLinux
