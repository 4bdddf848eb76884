#include "linux/gpiosounder.h"

#include <utility>

namespace HmiLinux {

GpioSounder::GpioSounder(Root root, QString file) : m_root(std::move(root)), m_file(std::move(file)) {}

bool GpioSounder::sound(bool on)
{
    return m_root.tell(m_file, on ? "1" : "0");
}

} // namespace HmiLinux
