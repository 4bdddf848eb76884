#include "conformance/pipewitness.h"

#include <cerrno>

#include <unistd.h>

namespace Conformance {

void PipeWitness::tell(const char *word, const Fields &fields) const
{
    Fields all = {word};
    all.insert(all.end(), fields.begin(), fields.end());
    const std::string line = encode(all);
    for (std::size_t done = 0; done < line.size();) {
        const ssize_t written = write(m_descriptor, line.data() + done, line.size() - done);
        if (written < 0 && errno != EINTR)
            return; // nobody is left who listens
        if (written > 0)
            done += static_cast<std::size_t>(written);
    }
}

} // namespace Conformance
