#pragma once

#include <QtCore/QAbstractListModel>
#include <QtCore/QLocale>
#include <QtCore/QVector>

namespace QSP {

/// The languages that the screen offers, each under its own name.
///
/// Which one is current is GlobalInfo's to say; the model follows it, also when
/// the language was changed elsewhere.
class LanguageModel : public QAbstractListModel
{
    Q_OBJECT

public:
    struct LanguageInfo {
        QString text; ///< in the language itself, hence never translated
        QLocale::Language langCode;
    };
    enum Role { TextRole = Qt::UserRole + 1, LangCodeRole, IsCurrentRole };
    Q_ENUM(Role)

    /// English alone.
    explicit LanguageModel(QObject *parent = nullptr);

    void setLanguages(const QVector<QLocale::Language> &languages);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = TextRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Switches the screen to the language of that row; a row that does not exist does nothing.
    Q_INVOKABLE void setCurrentLanguage(int index);
    QLocale::Language getCurrentSystemLanguage() const;

private:
    QVector<LanguageInfo> m_languages;
};

} // namespace QSP
