#include "shell/base/multilingualtext.h"

#include "shell/base/globalinfo.h"

#include <QtQuick/private/qquicktext_p.h>

#include <utility>

namespace QSP {

namespace {

// Rides on the text item as its child: one connection an item, however often its text is set.
class TextSource : public QObject
{
public:
    TextSource(QQuickText *text, std::function<QString()> textOf)
        : QObject(text), m_text(text), m_textOf(std::move(textOf))
    {
        followLanguage(this, [this] { apply(); });
    }

    static TextSource *of(QQuickText *text)
    {
        for (QObject *child : text->children()) {
            if (auto *source = dynamic_cast<TextSource *>(child))
                return source;
        }
        return nullptr;
    }

    void replace(std::function<QString()> textOf) { m_textOf = std::move(textOf); }
    void apply() { m_text->setText(m_textOf()); }

private:
    QQuickText *m_text;
    std::function<QString()> m_textOf;
};

} // namespace

void setMultilingualText(QQuickText *text, std::function<QString()> textOf)
{
    if (!text)
        return;
    // Catalogues come from outside too: one for a language of the host's own is the host's.
    text->setTextFormat(QQuickText::PlainText);
    text->setText(textOf());
    // It has no links to be pressed. For what takes presses a page that scrolls holds them back, and what is
    // handed on late goes past the screen to the host's own handlers where nobody takes it.
    text->setAcceptedMouseButtons(Qt::NoButton);
    if (TextSource *source = TextSource::of(text))
        source->replace(std::move(textOf));
    else
        new TextSource(text, std::move(textOf));
}

void followLanguage(QObject *owner, const std::function<void()> &apply)
{
    QObject::connect(&GlobalInfo::instance(), &GlobalInfo::localeChanged, owner, apply);
}

} // namespace QSP
