// Operates a host that knows nothing of tests: a plug-in that the toolkit loads into any program which
// QT_QPA_GENERIC_PLUGINS tells it to. It does what HOSTWATCH says, step by step, and then closes the
// windows as a person would.
//
//   see TEXT       waits until the text can be read
//   tap TEXT       waits for it, until nothing covers it, and taps it
//   picture FILE   saves what is on the glass

#include "host/glass/glass.h"
#include "host/glass/sight.h"

#include <QtCore/QTimer>
#include <QtGui/QGenericPlugin>
#include <QtGui/QGuiApplication>

namespace {

constexpr int lookEveryMs = 20;
constexpr int patienceMs = 60000;

QQuickWindow *shownWindow()
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        auto *found = qobject_cast<QQuickWindow *>(window);
        if (found && found->isExposed())
            return found;
    }
    return nullptr;
}

/// The first of the texts that a finger would reach.
QQuickItem *reachable(QQuickWindow *window, const QString &text)
{
    const QVector<QQuickItem *> all = Sight::visibleByText(window->contentItem(), text);
    for (QQuickItem *item : all) {
        if (Sight::isOnGlass(item) && !Sight::coverOf(item))
            return item;
    }
    return nullptr;
}

void tap(QQuickWindow *window, const QPoint &point)
{
    Glass::pointer(window, point, Qt::LeftButton, Qt::LeftButton);
    Glass::pointer(window, point, Qt::NoButton, Qt::LeftButton);
}

class Watch : public QObject
{
    Q_OBJECT

public:
    Watch() : m_steps(qEnvironmentVariable("HOSTWATCH").split(QLatin1Char('|')))
    {
        connect(&m_look, &QTimer::timeout, this, &Watch::look);
        m_look.start(lookEveryMs);
    }

private:
    void look()
    {
        if (m_steps.isEmpty()) {
            end();
        } else if (isDone(m_steps.constFirst())) {
            m_steps.removeFirst();
            m_looks = 0;
        } else if (++m_looks > patienceMs / lookEveryMs) {
            qCritical("in vain: %s", qUtf8Printable(m_steps.constFirst()));
            end();
        }
    }

    bool isDone(const QString &step)
    {
        QQuickWindow *window = shownWindow();
        const QString what = step.section(QLatin1Char(' '), 1);
        if (!window)
            return false;
        // Waits for a frame, and must not be called again from there.
        m_look.stop();
        const bool isPainted = Glass::awaitFrame(window);
        m_look.start(lookEveryMs);
        if (!isPainted)
            return false;
        if (step.startsWith(QLatin1String("picture ")))
            return Glass::picture(window).save(what);
        QQuickItem *item = reachable(window, what);
        if (item && step.startsWith(QLatin1String("tap ")))
            tap(window, Sight::centerOf(item));
        return item != nullptr;
    }

    void end()
    {
        m_look.stop();
        const QWindowList windows = QGuiApplication::topLevelWindows();
        for (QWindow *window : windows)
            window->close();
    }

    QStringList m_steps;
    QTimer m_look;
    int m_looks = 0;
};

} // namespace

class HostWatchPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "hostwatch.json")

public:
    QObject *create(const QString &, const QString &) override { return new Watch; }
};

#include "hostwatch.moc"
