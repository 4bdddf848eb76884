#pragma once

#include <QtCore/QString>

#include <functional>

class QQuickItem;

namespace QSP {

/// Gives the text item that a card's document offers under the name @p alias a
/// text that follows the language. A document without it stays without the text.
void setDocumentText(const QQuickItem *card, const char *alias, std::function<QString()> textOf);

} // namespace QSP
