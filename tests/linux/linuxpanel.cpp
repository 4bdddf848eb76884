#include "tests/linux/furnishedpanel.h"
#include "tests/linux/text.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#include <cstdio>

/// Runs a program on a panel with the service for real ones, with a real NetworkManager where there is one.
///
///     linux_panel [--real] PROGRAM ARGUMENTS...

namespace {

int run(const QStringList &command)
{
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    QEventLoop loop;
    QObject::connect(&program, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    QObject::connect(&program, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    program.start(command.constFirst(), command.mid(1));
    loop.exec();
    if (program.state() == QProcess::NotRunning && program.exitStatus() == QProcess::NormalExit &&
        program.error() == QProcess::UnknownError)
        return program.exitCode();
    std::fprintf(stderr, "linux_panel: %s\n", qPrintable(program.errorString()));
    return 126;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList command = QCoreApplication::arguments().mid(1);
    const bool isReal = command.value(0) == text("--real");
    if (isReal)
        command.removeFirst();
    if (command.isEmpty()) {
        std::fputs("linux_panel: a program is missing\n", stderr);
        return 2;
    }

    FurnishedPanel panel(isReal ? FurnishedPanel::Daemons::Real : FurnishedPanel::Daemons::Own);
    if (!panel.start()) {
        std::fputs("linux_panel: there is no bus\n", stderr);
        return 126;
    }
    qputenv("LD_LIBRARY_PATH", QFileInfo(text(PANEL_LINUX_LIBRARY)).path().toLocal8Bit());
    return run(command);
}
