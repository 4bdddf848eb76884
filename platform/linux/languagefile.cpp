#include "linux/languagefile.h"

#include "linux/config.h"
#include "linux/log.h"

namespace HmiLinux {

using HMI::SystemSet;

LanguageFile::LanguageFile(const Root &root, const Config &config, Later later)
    : m_root(root), m_later(std::move(later)), m_file(config.languageFile)
{
    readAgain();
}

void LanguageFile::setLanguage(SystemSet::Language language)
{
    if (language != SystemSet::CHINESE && language != SystemSet::ENGLISH)
        return;
    if (m_language.exchange(language) == language)
        return;
    m_later([root = m_root, file = m_file, language] {
        if (!root.replace(file, language == SystemSet::CHINESE ? "zh\n" : "en\n"))
            qCWarning(deviceLog, "the language cannot be kept in %s", qPrintable(root.path(file)));
    });
}

void LanguageFile::readAgain()
{
    const std::optional<QByteArray> contents = m_root.read(m_file);
    if (!contents)
        return;
    const QByteArray code = contents->trimmed();
    if (code == "zh")
        m_language = SystemSet::CHINESE;
    else if (code == "en")
        m_language = SystemSet::ENGLISH;
    else
        qCWarning(deviceLog, "%s holds no language of the panel", qPrintable(m_root.path(m_file)));
}

} // namespace HmiLinux
