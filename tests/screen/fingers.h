#pragma once

#include "tests/support/operator.h"

#include <QtCore/QRandomGenerator>

/// Fingers that know nothing: they tap, touch, drag and type anywhere. The same seed does the same.
class Fingers
{
public:
    explicit Fingers(quint32 seed) : m_random(seed) {}

    /// Anything from nothing up to, and without, @p end.
    int choose(int end) { return m_random.bounded(end); }
    int choose(int begin, int end) { return m_random.bounded(begin, end); }

    QPoint anywhere(const QQuickWindow *window);
    /// The middle of a control on the @p glass of the @p root, or anywhere when there is none.
    QPoint anyControl(const QQuickWindow *window, QQuickItem *glass, const QQuickItem *root);

    /// What is done @p meanwhile is done under the finger, which need not be lifted where it went down.
    void touch(QQuickWindow *window, const std::function<void()> &meanwhile);
    void drag(QQuickWindow *window);
    void pressKeys(QQuickWindow *window);

private:
    QRandomGenerator m_random;
};
