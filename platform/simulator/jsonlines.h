#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace HmiSimulator {

/// Where the values of a JSON text stand, which QJsonDocument does not tell.
class JsonLines
{
public:
    /// The way to a value: keys and list indexes ("wifi", "networks", "3").
    using Path = QStringList;

    /// @p json must be well formed.
    explicit JsonLines(QByteArray json);

    /// Line of the key (or list element) at @p path, counted from 1; 1 for what is not there.
    int lineOf(const Path &path) const;
    /// Keys that stand twice in one object: QJsonDocument silently takes the last one.
    const QVector<Path> &repeated() const { return m_repeated; }

    static int lineAt(const QByteArray &json, int offset);

private:
    void value(const Path &path);
    void object(const Path &path);
    void list(const Path &path);
    QString string();
    void skipBlanks();
    char peek() const { return m_at < m_json.size() ? m_json.at(m_at) : '\0'; }

    QByteArray m_json;
    int m_at = 0;
    int m_line = 1;
    QHash<Path, int> m_lines;
    QVector<Path> m_repeated;
};

} // namespace HmiSimulator
