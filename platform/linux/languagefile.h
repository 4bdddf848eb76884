#pragma once

#include "hmi/systemset.h"
#include "linux/root.h"

#include <atomic>

namespace HmiLinux {

struct Config;

/// The language of the panel, in a file that its other programs may read and write: "en" or "zh".
/// May be used on any thread.
class LanguageFile
{
public:
    LanguageFile(const Root &root, const Config &config, Later later);

    HMI::SystemSet::Language language() const { return m_language; }
    /// A language that the panel does not have changes nothing.
    void setLanguage(HMI::SystemSet::Language language);
    /// Takes over what another program wrote.
    void readAgain();

private:
    Root m_root;
    Later m_later;
    QString m_file;
    std::atomic<HMI::SystemSet::Language> m_language{HMI::SystemSet::ENGLISH};
};

} // namespace HmiLinux
