#include "linux/gpiosounder.h"

namespace HmiLinux {

GpioSounder::GpioSounder(const Root &root, QString file) : m_root(root), m_file(std::move(file)) {}

bool GpioSounder::sound(bool on)
{
    return m_root.tell(m_file, on ? "1" : "0");
}

} // namespace HmiLinux
