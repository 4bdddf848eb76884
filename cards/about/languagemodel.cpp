#include "cards/about/languagemodel.h"

#include "shell/base/globalinfo.h"

namespace QSP {

LanguageModel::LanguageModel(QObject *parent)
    : QAbstractListModel(parent), m_languages{{QStringLiteral("English"), QLocale::English}}
{
    connect(&GlobalInfo::instance(), &GlobalInfo::localeChanged, this,
            [this] { emit dataChanged(index(0), index(m_languages.size() - 1)); });
}

int LanguageModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_languages.size();
}

QVariant LanguageModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_languages.size())
        return {};
    const LanguageInfo &language = m_languages[index.row()];
    switch (role) {
    case TextRole:
        return language.text;
    case LangCodeRole:
        return static_cast<int>(language.langCode);
    case IsCurrentRole:
        return language.langCode == getCurrentSystemLanguage();
    default:
        return {};
    }
}

QHash<int, QByteArray> LanguageModel::roleNames() const
{
    return {{TextRole, "text"}, {LangCodeRole, "langCode"}, {IsCurrentRole, "isCurrent"}};
}

void LanguageModel::setCurrentLanguage(int index)
{
    if (index < 0 || index >= m_languages.size())
        return;
    GlobalInfo::switchLanguage(QLocale(m_languages[index].langCode, QLocale::AnyCountry));
}

QLocale::Language LanguageModel::getCurrentSystemLanguage() const
{
    return GlobalInfo::instance().locale().language();
}

} // namespace QSP
