#include "conformance/keyboard/keymap.h"

#include <algorithm>

namespace Conformance {

namespace {

/// Less than half of the smallest key that a finger can strike.
constexpr int Grid = 20;
/// How often each spot is touched that may turn a page: one key may lead through several of them.
constexpr int Rounds = 3;

} // namespace

KeyMap::KeyMap(Stage &stage, VkbLayoutType type, const QString &wanted, const std::function<void()> &step)
    : m_wasShown(stage.show(type))
{
    if (!m_wasShown)
        return;
    goThrough(stage);
    const QVector<QPointF> spots = silentSpots();
    const auto isAllFound = [this, type, &wanted] {
        return missing(wanted).isEmpty() && (type != VkbFullKeyboard || hasCapitals());
    };
    for (int i = 0; i < Rounds * spots.size() && !isAllFound(); ++i) {
        step();
        stage.tap(spots[i % spots.size()]);
        goThrough(stage);
    }
}

void KeyMap::look(Stage &stage, VkbLayoutType type)
{
    if (!stage.show(type))
        return;
    for (Key &key : m_keys) {
        const QVector<KeyStroke> strokes = strokesAt(stage, key.point);
        key.isOnFirstPage = !strokes.isEmpty() &&
                            strokes.constFirst().text == key.strokes.constFirst().text &&
                            strokes.constFirst().code == key.strokes.constFirst().code;
        // Instead of a key of another page it may have been what turns the pages.
        if (strokes.isEmpty() && !(stage.hide() && stage.show(type)))
            return;
    }
}

QVector<KeyStroke> KeyMap::strokesAt(Stage &stage, const QPointF &point)
{
    stage.field()->forceActiveFocus();
    stage.field()->forget();
    stage.tap(point);
    return stage.field()->strokes();
}

void KeyMap::goThrough(Stage &stage)
{
    const bool isFirst = m_silent.isEmpty();
    const QRectF area = stage.area();
    const int rows = qRound(area.height() / Grid);
    const int columns = qRound(area.width() / Grid);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const QPointF point(area.left() + Grid * (column + 0.5), area.top() + Grid * (row + 0.5));
            if (!isFirst && m_silent.contains(point))
                continue;
            const QVector<KeyStroke> strokes = strokesAt(stage, point);
            if (!strokes.isEmpty())
                learn(point, strokes);
            else if (isFirst)
                m_silent.append(point);
        }
    }
}

void KeyMap::learn(const QPointF &point, const QVector<KeyStroke> &strokes)
{
    const auto isSame = [&strokes](const Key &key) {
        return key.strokes.constFirst().code == strokes.constFirst().code &&
               key.strokes.constFirst().text == strokes.constFirst().text;
    };
    if (std::none_of(m_keys.cbegin(), m_keys.cend(), isSame))
        m_keys.append({point, strokes, false});
}

QVector<QPointF> KeyMap::silentSpots() const
{
    // One point of each run of silent ones in a row is enough.
    QVector<QPointF> spots;
    for (int i = 0; i < m_silent.size(); ++i) {
        int end = i;
        while (end + 1 < m_silent.size() && m_silent[end + 1] == m_silent[end] + QPointF(Grid, 0))
            ++end;
        spots.append(m_silent[(i + end) / 2]);
        i = end;
    }
    return spots;
}

const KeyMap::Key *KeyMap::typing(QChar character) const
{
    const auto found = std::find_if(m_keys.cbegin(), m_keys.cend(), [character](const Key &key) {
        return key.strokes.constFirst().text == QString(character);
    });
    return found == m_keys.cend() ? nullptr : &*found;
}

const KeyMap::Key *KeyMap::sending(int code) const
{
    const auto found = std::find_if(m_keys.cbegin(), m_keys.cend(),
                                    [code](const Key &key) { return key.strokes.constFirst().code == code; });
    return found == m_keys.cend() ? nullptr : &*found;
}

const KeyMap::Key *KeyMap::returning() const
{
    const Key *key = sending(Qt::Key_Return);
    return key ? key : sending(Qt::Key_Enter);
}

QString KeyMap::missing(const QString &characters) const
{
    QString result;
    for (const QChar character : characters) {
        if (!typing(character) && !typing(character.toUpper()))
            result += character;
    }
    return result;
}

bool KeyMap::hasCapitals() const
{
    return std::any_of(m_keys.cbegin(), m_keys.cend(), [](const Key &key) {
        const QString &text = key.strokes.constFirst().text;
        return text.size() == 1 && text.at(0).isUpper();
    });
}

} // namespace Conformance
