#include "simulator/jsonlines.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <cstring>
#include <utility>

namespace HmiSimulator {

namespace {

const char ByteOrderMark[] = "\xEF\xBB\xBF";

} // namespace

JsonLines::JsonLines(QByteArray json) : m_json(std::move(json))
{
    if (m_json.startsWith(ByteOrderMark))
        m_at = static_cast<int>(std::strlen(ByteOrderMark));
    value(m_root);
}

int JsonLines::lineAt(const QByteArray &json, int offset)
{
    return 1 + json.left(offset).count('\n');
}

void JsonLines::value(Place &place)
{
    skipBlanks();
    switch (peek()) {
    case '{':
        object(place);
        break;
    case '[':
        list(place);
        break;
    case '"':
        skipString();
        break;
    default:
        while (m_at < m_json.size() && std::strchr(",]} \t\r\n", peek()) == nullptr)
            ++m_at;
    }
    skipBlanks();
}

void JsonLines::object(Place &place)
{
    ++m_at;
    skipBlanks();
    while (peek() == '"') {
        const int line = m_line;
        const QString key = takeString();
        if (!m_repeated && place.members.contains(key))
            m_repeated = Repeated{key, line};
        Place &member = place.members[key];
        member = {line, {}, {}};
        skipBlanks();
        ++m_at; // the colon
        value(member);
        if (peek() == ',')
            ++m_at;
        skipBlanks();
    }
    ++m_at;
}

void JsonLines::list(Place &place)
{
    ++m_at;
    skipBlanks();
    while (m_at < m_json.size() && peek() != ']') {
        place.elements.append({m_line, {}, {}});
        value(place.elements.last());
        if (peek() == ',')
            ++m_at;
        skipBlanks();
    }
    ++m_at;
}

QString JsonLines::takeString()
{
    const int begin = m_at;
    skipString();
    const QByteArray text = QByteArray::fromRawData(m_json.constData() + begin, m_at - begin);
    if (!text.contains('\\'))
        return QString::fromUtf8(text.constData() + 1, text.size() - 2);
    // The document's own reader knows all escapes.
    return QJsonDocument::fromJson('[' + text + ']').array().at(0).toString();
}

void JsonLines::skipString()
{
    ++m_at;
    while (m_at < m_json.size() && peek() != '"')
        m_at += peek() == '\\' ? 2 : 1;
    ++m_at;
}

void JsonLines::skipBlanks()
{
    while (m_at < m_json.size() && std::strchr(" \t\r\n", peek()) != nullptr) {
        if (peek() == '\n')
            ++m_line;
        ++m_at;
    }
}

} // namespace HmiSimulator
