#pragma once

#include <QtCore/QString>

#include <functional>

class QQuickText;

namespace QSP {

/// Gives a text item a text that follows the language.
///
/// @p textOf yields the text in the current language, normally by
/// QCoreApplication::translate(); it is asked at once and at every language
/// change as long as the item lives. A further call for the same item replaces
/// what it said before, at no further cost. A null item does nothing; an empty
/// @p textOf throws std::bad_function_call.
void setMultilingualText(QQuickText *text, std::function<QString()> textOf);

} // namespace QSP
