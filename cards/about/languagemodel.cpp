#include "cards/about/languagemodel.h"

#include "shell/base/globalinfo.h"

#include <algorithm>

namespace QSP {

namespace {

QString nameOf(QLocale::Language language)
{
    // Qt would add the country.
    if (language == QLocale::English)
        return QStringLiteral("English");
    const QLocale locale(language);
    const QString name = locale.nativeLanguageName();
    // Many write it small within a sentence; here it stands alone.
    return name.isEmpty() ? name : locale.toUpper(QString(name.at(0))) + name.mid(1);
}

LanguageModel::LanguageInfo infoOf(QLocale::Language language)
{
    return {nameOf(language), language};
}

} // namespace

LanguageModel::LanguageModel(QObject *parent)
    : QAbstractListModel(parent), m_languages{infoOf(QLocale::English)}
{
    connect(&GlobalInfo::instance(), &GlobalInfo::localeChanged, this,
            [this] { emit dataChanged(index(0), index(m_languages.size() - 1)); });
}

void LanguageModel::setLanguages(const QVector<QLocale::Language> &languages)
{
    const auto isSame = [](const LanguageInfo &info, QLocale::Language language) {
        return info.langCode == language;
    };
    // Rows that are made anew for nothing would keep the operator waiting.
    if (std::equal(m_languages.cbegin(), m_languages.cend(), languages.cbegin(), languages.cend(), isSame))
        return;
    QVector<LanguageInfo> infos;
    for (const QLocale::Language language : languages)
        infos << infoOf(language);
    beginResetModel();
    m_languages = infos;
    endResetModel();
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
