#include "simulator/jsonlines.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <cstring>
#include <utility>

namespace HmiSimulator {

JsonLines::JsonLines(QByteArray json) : m_json(std::move(json))
{
    value({});
}

int JsonLines::lineOf(const Path &path) const
{
    return m_lines.value(path, 1);
}

int JsonLines::lineAt(const QByteArray &json, int offset)
{
    return 1 + json.left(offset).count('\n');
}

void JsonLines::value(const Path &path)
{
    skipBlanks();
    switch (peek()) {
    case '{':
        object(path);
        break;
    case '[':
        list(path);
        break;
    case '"':
        string();
        break;
    default:
        while (m_at < m_json.size() && std::strchr(",]} \t\r\n", peek()) == nullptr)
            ++m_at;
    }
    skipBlanks();
}

void JsonLines::object(const Path &path)
{
    ++m_at;
    skipBlanks();
    while (peek() == '"') {
        const int line = m_line;
        const Path member = path + QStringList(string());
        if (m_lines.contains(member))
            m_repeated.append(member);
        m_lines.insert(member, line);
        skipBlanks();
        ++m_at; // the colon
        value(member);
        if (peek() == ',')
            ++m_at;
        skipBlanks();
    }
    ++m_at;
}

void JsonLines::list(const Path &path)
{
    ++m_at;
    skipBlanks();
    for (int index = 0; m_at < m_json.size() && peek() != ']'; ++index) {
        const Path element = path + QStringList(QString::number(index));
        m_lines.insert(element, m_line);
        value(element);
        if (peek() == ',')
            ++m_at;
        skipBlanks();
    }
    ++m_at;
}

QString JsonLines::string()
{
    const int begin = m_at++;
    while (m_at < m_json.size() && peek() != '"')
        m_at += peek() == '\\' ? 2 : 1;
    ++m_at;
    // Keys may be written with escapes; the document's own reader knows them all.
    const QByteArray list = '[' + m_json.mid(begin, m_at - begin) + ']';
    return QJsonDocument::fromJson(list).array().at(0).toString();
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
