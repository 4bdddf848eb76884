#pragma once

#include "conformance/keyboard/stage.h"

namespace Conformance {

/// The keys of a layout, found by touching the whole keyboard point by point: no keyboard tells where its keys
/// are, or what they are called.
///
/// A point that types nothing may turn a page or shift to capitals. Each such spot is touched in its turn, and
/// the keyboard gone through again, until nothing of what is wanted is missing.
class KeyMap
{
public:
    struct Key {
        QPointF point;
        /// What the touch sent, release and all.
        QVector<KeyStroke> strokes;
        /// Whether the point alone leads to it, once the keyboard is shown.
        bool isOnFirstPage = false;
    };

    /// Looks for the characters @p wanted, and whatever else there is. That may take a while: @p step is called
    /// whenever it has gone on.
    KeyMap(Stage &stage, VkbLayoutType type, const QString &wanted, const std::function<void()> &step);
    /// Touches each key once more, on a keyboard that was just shown.
    void look(Stage &stage, VkbLayoutType type);

    /// Whether there was a keyboard to look at.
    bool wasShown() const { return m_wasShown; }
    /// The key that types @p character.
    const Key *typing(QChar character) const;
    const Key *sending(int code) const;
    const Key *returning() const;
    const QVector<Key> &keys() const { return m_keys; }
    /// Those of the characters that no key types.
    QString missing(const QString &characters) const;
    bool hasCapitals() const;

private:
    static QVector<KeyStroke> strokesAt(Stage &stage, const QPointF &point);
    void goThrough(Stage &stage);
    void learn(const QPointF &point, const QVector<KeyStroke> &strokes);
    QVector<QPointF> silentSpots() const;

    bool m_wasShown = false;
    QVector<Key> m_keys;
    QVector<QPointF> m_silent;
};

} // namespace Conformance
