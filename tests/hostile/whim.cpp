#include "tests/hostile/whim.h"

#include <QtCore/QByteArray>

#include <algorithm>
#include <array>
#include <limits>

namespace HostileService {

namespace {

constexpr int longestText = 100000;
constexpr int mostNetworks = 5000;

// What looks like markup, like a place holder, like a path, or is no text at all.
const std::array<std::string, 18> &phrases()
{
    static const std::array<std::string, 18> all = {
        "<b>x</b>", R"(<img src="http://127.0.0.1:9/x.png">)", R"(<a href="file:///etc/passwd">x</a>)",
        "&amp;&#0;&lt;", "<table><tr><td>", "%1%2%n%L99", "../../etc/passwd", "\n\r\t\v",
        std::string("a\0b", 3), "\xEF\xBB\xBF", "\xC3", "\xFF\xFE\xFD", "\xED\xA0\x80\xED\xBF\xBF",
        "\xF4\x90\x80\x80",
        // From the right to the left, unended, and a line's end.
        QByteArray::fromHex("e280aee280a8").toStdString(), "\xD7\xB0\xC5\xE4",
        "\xE8\xA3\x85\xE9\x85\x8D\xE8\xBD\xA6\xE9\x97\xB4", "Hall"};
    return all;
}

} // namespace

void Whim::begin(unsigned seed)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_random.seed(seed);
    m_hasFewLetters = false;
    m_wildness = 50;
}

bool Whim::isWild()
{
    if (below(400) == 0) {
        const int wildness = std::array<int, 4>{0, 5, 30, 95}[static_cast<size_t>(below(4))];
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_wildness = wildness;
    }
    const int drawn = below(100);
    const std::lock_guard<std::mutex> lock(m_mutex);
    return drawn < m_wildness;
}

int Whim::below(int count)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    // Not a distribution of the library's: their numbers differ from one library to the next.
    return static_cast<int>(m_random() % static_cast<unsigned>(count));
}

int Whim::number()
{
    constexpr std::array<int, 12> edges = {std::numeric_limits<int>::min(),
                                           std::numeric_limits<int>::min() + 1,
                                           -256,
                                           -1,
                                           0,
                                           33,
                                           100,
                                           101,
                                           255,
                                           256,
                                           std::numeric_limits<int>::max() - 1,
                                           std::numeric_limits<int>::max()};
    switch (below(3)) {
    case 0:
        return edges[static_cast<size_t>(below(static_cast<int>(edges.size())))];
    case 1:
        return below(140) - 10;
    default: {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return static_cast<int>(m_random());
    }
    }
}

std::string Whim::text()
{
    // Most are short; a few are as long as they may be.
    return phrasesOf(below(8) == 0 ? 1 + below(longestText) : below(6), longestText);
}

std::string Whim::phrasesOf(int count, size_t longest)
{
    const auto &parts = phrases();
    std::string text;
    for (int i = 0; i < count && text.size() < longest; ++i) {
        if (!m_hasFewLetters && below(4) == 0)
            text += static_cast<char>(below(256));
        else
            text += parts[static_cast<size_t>(below(static_cast<int>(parts.size())))];
    }
    return text;
}

HMI::SSID Whim::name()
{
    HMI::SSID ssid{};
    const std::string drawn = phrasesOf(below(6), ssid.size());
    std::copy_n(drawn.begin(), std::min(drawn.size(), ssid.size()), ssid.begin());
    return ssid;
}

HMI::SystemSet::SsidInfo Whim::network()
{
    HMI::SystemSet::SsidInfo info{};
    info.ssid = name();
    // Long ones are rare: thousands of networks with one each would only try the memory.
    info.password = below(300) == 0 ? text() : phrasesOf(below(4), 70);
    info.signal = static_cast<unsigned char>(below(256));
    info.needsPassword = static_cast<unsigned char>(below(2) == 0 ? 0 : below(256));
    return info;
}

std::unique_ptr<std::vector<HMI::SystemSet::SsidInfo>> Whim::networks()
{
    if (below(8) == 0)
        return nullptr;
    const int count =
        below(20) == 0 ? mostNetworks : below(std::array<int, 3>{1, 8, 40}[static_cast<size_t>(below(3))]);
    auto list = std::make_unique<std::vector<HMI::SystemSet::SsidInfo>>();
    list->reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        // The same network again now and then.
        if (i > 0 && below(10) == 0)
            list->push_back(list->at(static_cast<size_t>(below(i))));
        else
            list->push_back(network());
    }
    return list;
}

} // namespace HostileService
