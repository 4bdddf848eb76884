#include "linux/evdevsounder.h"

#include <QtCore/QFile>

#include <array>
#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace HmiLinux {

EvdevSounder::EvdevSounder(const QString &device, int frequency)
    : m_file(::open(QFile::encodeName(device).constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC))
    , m_frequency(frequency)
{}

EvdevSounder::~EvdevSounder()
{
    if (m_file < 0)
        return;
    EvdevSounder::sound(false);
    ::close(m_file);
}

bool EvdevSounder::sound(bool on)
{
    input_event event = {};
    event.type = EV_SND;
    event.code = SND_TONE;
    event.value = on ? m_frequency : 0;
    return ::write(m_file, &event, sizeof event) == ssize_t(sizeof event);
}

bool EvdevSounder::canSound(const QString &device)
{
    const int file = ::open(QFile::encodeName(device).constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    std::array<unsigned char, SND_MAX / 8 + 1> sounds = {};
    const int length = ::ioctl(file, EVIOCGBIT(EV_SND, sounds.size()), sounds.data());
    ::close(file);
    return length > 0 && (sounds[SND_TONE / 8] >> SND_TONE % 8 & 1) != 0;
}

} // namespace HmiLinux
