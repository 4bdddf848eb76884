#include "linux/gpiosounder.h"

#include <utility>

namespace HmiLinux {

GpioSounder::GpioSounder(Root root, QString file) : m_root(std::move(root)), m_file(std::move(file)) {}

GpioSounder::~GpioSounder()
{
    // The file keeps what was written when nobody is there any more to end the tone.
    if (m_sounds)
        GpioSounder::sound(false);
}

bool GpioSounder::sound(bool on)
{
    if (!m_root.tell(m_file, on ? "1" : "0"))
        return false;
    m_sounds = on;
    return true;
}

} // namespace HmiLinux
