#pragma once

#include "cards/about/languagemodel.h"
#include "controls/basecard.h"

namespace QSP {

/// The list of languages; a tap switches every text of the screen at once.
class CardLanguage : public BaseCard
{
    Q_OBJECT
    Q_PROPERTY(QSP::LanguageModel *languageModel READ languageModel CONSTANT)
    Q_PROPERTY(int languageTitleRowHeight READ languageTitleRowHeight CONSTANT)

public:
    explicit CardLanguage(QQuickItem *parent = nullptr);

    LanguageModel *languageModel() const { return m_languageModel; }
    /// In pixels; the sizes of the rows are fractions of it.
    int languageTitleRowHeight() const { return m_titleRowHeight; }

private:
    LanguageModel *m_languageModel;
    int m_titleRowHeight;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardLanguage)
