#include "keeping.h"

#include <cstdlib>
#include <fstream>
#include <string>

namespace Mutants {

namespace {

std::string levelFile()
{
    const char *name = std::getenv("PANEL_STATE");
    return std::string(name == nullptr ? "" : name) + ".level";
}

} // namespace

std::function<void(bool)> &lastPing()
{
    static auto &kept = *new std::function<void(bool)>;
    return kept;
}

void keepLevel(int level)
{
    std::ofstream(levelFile()) << level;
}

std::optional<int> keptLevel()
{
    int level = 0;
    if (std::ifstream(levelFile()) >> level)
        return level;
    return std::nullopt;
}

} // namespace Mutants
