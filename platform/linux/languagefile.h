#pragma once

#include "hmi/systemset.h"
#include "linux/root.h"

#include <atomic>
#include <mutex>

namespace HmiLinux {

struct Config;

/// The language of the panel, in a file that its other programs may read and write: "en" or "zh".
/// May be used on any thread.
class LanguageFile
{
public:
    LanguageFile(Root root, const Config &config, Later later);

    HMI::SystemSet::Language language() const { return m_language; }
    /// A language that the panel does not have changes nothing.
    void setLanguage(HMI::SystemSet::Language language);
    QString file() const { return m_root.path(m_file); }
    /// Takes over what another program wrote, unless what was set here is still to be written.
    void readAgain();

private:
    Root m_root;
    Later m_later;
    QString m_file;
    std::mutex m_mutex;  ///< for those who change it; who reads does not wait
    int m_unwritten = 0; ///< changes on their way into the file
    std::atomic<HMI::SystemSet::Language> m_language{HMI::SystemSet::ENGLISH};
};

} // namespace HmiLinux
