#pragma once

#include "linux/sounder.h"

#include <QtCore/QString>

namespace HmiLinux {

/// A sounder that the kernel knows as an input device.
class EvdevSounder : public Sounder
{
public:
    /// @p frequency in hertz.
    EvdevSounder(const QString &device, int frequency);
    ~EvdevSounder() override;

    bool isOpen() const { return m_file >= 0; }
    bool sound(bool on) override;

    /// Whether the input device at @p device can sound.
    static bool canSound(const QString &device);

private:
    int m_file;
    int m_frequency;
};

} // namespace HmiLinux
