#include "host/tour/tour.h"

#include "host/glass/glass.h"
#include "host/panelservice.h"
#include "host/tour/itinerary.h"
#include "host/tour/messagewatch.h"

#include <QtCore/QDir>

#include <cstdio>

namespace {

// With so many, what comes after them is only their consequence.
constexpr int mostProblems = 5;
// Time for what was last done to move to its place before the picture is taken.
constexpr int settling = 50;

class Album
{
public:
    explicit Album(const QString &directory) : m_directory(directory) {}

    bool prepare()
    {
        if (!m_directory.mkpath(QStringLiteral(".")))
            return false;
        const QStringList old = m_directory.entryList({"[0-9][0-9]-*.png"}, QDir::Files);
        for (const QString &name : old)
            m_directory.remove(name);
        return true;
    }

    QString nextName(const QString &picture)
    {
        ++m_count;
        return QStringLiteral("%1-%2").arg(m_count, 2, 10, QLatin1Char('0')).arg(picture);
    }

    bool save(const QImage &image, const QString &name) const
    {
        return image.save(m_directory.filePath(name + QLatin1String(".png")));
    }

    int count() const { return m_count; }

private:
    QDir m_directory;
    int m_count = 0;
};

void say(const QString &name, const QString &problem)
{
    std::fprintf(stderr, "tour: %s: %s\n", qUtf8Printable(name), qUtf8Printable(problem));
}

} // namespace

bool walkTour(QQuickWindow *window, const Options &options)
{
    const QString &directory = options.tourDirectory;
    Album album(directory);
    if (!album.prepare()) {
        say(directory, QStringLiteral("the directory cannot be made"));
        return false;
    }

    int problemCount = 0;
    const auto report = [&](const QString &name, const QString &problem) {
        ++problemCount;
        say(name, problem);
    };

    Visitor visitor(window);
    Visitor::pause(settling);
    for (const Stop &stop : itinerary(options, PanelService::adapters())) {
        const QString name = album.nextName(stop.picture);
        const int messagesBefore = MessageWatch::count();
        for (const auto &action : stop.actions)
            action(visitor);
        Visitor::pause(settling);
        if (!Glass::awaitFrame(window))
            report(name, QStringLiteral("the panel is not painted"));
        if (!album.save(Glass::picture(window), name))
            report(name, QStringLiteral("the picture cannot be saved"));
        const QStringList problems = visitor.takeProblems();
        for (const QString &problem : problems)
            report(name, problem);
        if (const int messages = MessageWatch::count() - messagesBefore)
            report(name, QStringLiteral("%1 warning(s)").arg(messages));
        if (problemCount >= mostProblems) {
            report(name, QStringLiteral("the tour ends here"));
            break;
        }
    }
    if (const int messages = MessageWatch::count())
        report(directory, QStringLiteral("%1 warning(s) in all").arg(messages));
    if (problemCount > 0) {
        say(directory,
            QStringLiteral(
                "the tour is for a panel with LAN0, static and with an address, and if it has Wi-Fi, for the"
                " networks of the simulated one: Maintenance, Works Hall and Works Hall Guests"));
    }
    std::printf("%d pictures in %s, %d problems\n", album.count(), qUtf8Printable(directory), problemCount);
    return problemCount == 0;
}
