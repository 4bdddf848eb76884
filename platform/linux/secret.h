#pragma once

#include <QtCore/QString>

#include <memory>
#include <string>
#include <string_view>

namespace HmiLinux {

/// A password, wiped when the last one who needs it lets go of it.
class Secret
{
public:
    explicit Secret(std::string_view utf8) : m_utf8(utf8) {}
    ~Secret();
    Secret(const Secret &) = delete;
    Secret &operator=(const Secret &) = delete;

    bool isEmpty() const { return m_utf8.empty(); }
    const std::string &utf8() const { return m_utf8; }

private:
    std::string m_utf8;
};

using SharedSecret = std::shared_ptr<const Secret>;

/// Overwrites a text together with all that share its memory, as the copies in a message do that has been sent.
void wipe(QString *text);

} // namespace HmiLinux
