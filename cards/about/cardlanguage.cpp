#include "cards/about/cardlanguage.h"

#include "controls/titlerow.h"

namespace QSP {

CardLanguage::CardLanguage(QQuickItem *parent)
    : BaseCard(parent), m_languageModel(new LanguageModel(this)), m_titleRowHeight(titleRowHeight())
{}

} // namespace QSP
