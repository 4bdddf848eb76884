#include "tests/linux/barepanel.h"
#include "tests/linux/furnishedpanel.h"
#include "tests/linux/text.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#include <cstdio>

/// Runs a program on a panel with the service for real ones: with daemons of the tests' own, with a real
/// NetworkManager (--real), or on one that has nothing (--bare).
///
///     linux_panel [--real | --bare] PROGRAM ARGUMENTS...

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

template <class Panel> int runOn(Panel &&panel, const QStringList &command)
{
    if (command.isEmpty()) {
        std::fputs("linux_panel: a program is missing\n", stderr);
        return 2;
    }
    if (!panel.start()) {
        std::fputs("linux_panel: there is no bus\n", stderr);
        return 126;
    }
    qputenv("LD_LIBRARY_PATH", QFileInfo(text(PANEL_LINUX_LIBRARY)).path().toLocal8Bit());
    return run(command);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList command = QCoreApplication::arguments().mid(1);
    if (command.value(0) == text("--bare"))
        return runOn(BarePanel(), command.mid(1));
    if (command.value(0) == text("--real"))
        return runOn(FurnishedPanel(FurnishedPanel::Daemons::Real), command.mid(1));
    return runOn(FurnishedPanel(), command);
}
