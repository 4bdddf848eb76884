#pragma once

#include <QtCore/QString>

#include <functional>

class QObject;
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

/// The same for texts that are no text item, such as those of a list or of a button: calls @p apply at every
/// language change as long as @p owner lives. It is not called at once.
void followLanguage(QObject *owner, const std::function<void()> &apply);

} // namespace QSP
