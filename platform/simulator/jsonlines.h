#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <optional>

namespace HmiSimulator {

/// Where the values of a JSON text stand, which QJsonDocument does not tell.
class JsonLines
{
public:
    /// A value: the line of its key (or of the list element), counted from 1, and what stands in it.
    struct Place {
        int line = 1;
        QMap<QString, Place> members; ///< of an object
        QVector<Place> elements;      ///< of a list

        /// Where @p key or an element stands; for what is not there a place in the same line.
        Place at(const QString &key) const { return members.value(key, {line, {}, {}}); }
        Place at(int index) const { return elements.value(index, {line, {}, {}}); }
    };
    /// A key that stands in its object for a second time: QJsonDocument silently takes the last one.
    struct Repeated {
        QString key;
        int line;
    };

    /// @p json must be well formed, and not nested deeper than the stack can follow.
    explicit JsonLines(QByteArray json);

    const Place &root() const { return m_root; }
    /// The first in the text, if there is one.
    const std::optional<Repeated> &repeated() const { return m_repeated; }

    static int lineAt(const QByteArray &json, int offset);

private:
    void value(Place &place);
    void object(Place &place);
    void list(Place &place);
    QString takeString();
    void skipString();
    void skipBlanks();
    char peek() const { return m_at < m_json.size() ? m_json.at(m_at) : '\0'; }

    QByteArray m_json;
    int m_at = 0;
    int m_line = 1;
    Place m_root;
    std::optional<Repeated> m_repeated;
};

} // namespace HmiSimulator
