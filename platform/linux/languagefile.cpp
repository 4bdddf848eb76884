#include "linux/languagefile.h"

#include "linux/config.h"
#include "linux/log.h"

#include <utility>

namespace HmiLinux {

using HMI::SystemSet;

LanguageFile::LanguageFile(Root root, const Config &config, Later later)
    : m_root(std::move(root)), m_later(std::move(later)), m_file(config.languageFile)
{
    readAgain();
}

void LanguageFile::setLanguage(SystemSet::Language language)
{
    if (language != SystemSet::CHINESE && language != SystemSet::ENGLISH)
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_language.exchange(language) == language)
            return;
        ++m_unwritten;
    }
    m_later([this, language] {
        if (!m_root.replace(m_file, language == SystemSet::CHINESE ? "zh\n" : "en\n"))
            qCWarning(deviceLog, "the language cannot be kept in %s", qPrintable(file()));
        const std::lock_guard<std::mutex> lock(m_mutex);
        --m_unwritten;
    });
}

void LanguageFile::readAgain()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const std::optional<QByteArray> contents = m_root.read(m_file);
    if (!contents || m_unwritten > 0)
        return;
    const QByteArray code = contents->trimmed();
    if (code == "zh")
        m_language = SystemSet::CHINESE;
    else if (code == "en")
        m_language = SystemSet::ENGLISH;
    else if (!code.isEmpty()) // it is being written
        qCWarning(deviceLog, "%s holds no language of the panel", qPrintable(file()));
}

} // namespace HmiLinux
