#include "tests/linux/harness/sandbox.h"

#include <QtCore/QtDebug>
#include <QtNetwork/QLocalSocket>

namespace {

// Longer than the sandbox itself waits for a service.
constexpr int Patience = 60000;

QString socketPath()
{
    return qEnvironmentVariable("PANEL_HARNESS");
}

QStringList ask(const QString &line)
{
    QLocalSocket socket;
    socket.connectToServer(socketPath());
    if (!socket.waitForConnected(Patience)) {
        return {socket.errorString()};
    }
    socket.write(line.toUtf8() + '\n');
    QByteArray answer;
    while (socket.waitForReadyRead(Patience)) {
        answer += socket.readAll();
    }
    answer += socket.readAll();
    return QString::fromUtf8(answer).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

bool Sandbox::isAround()
{
    return !socketPath().isEmpty();
}

std::optional<QStringList> Sandbox::tell(const QStringList &words)
{
    QStringList answer = ask(words.join(QLatin1Char(' ')));
    if (answer.isEmpty() || answer.constFirst() != QLatin1String("ok")) {
        qWarning().noquote() << "The sandbox refuses:" << answer.join(QLatin1Char('\n'));
        return std::nullopt;
    }
    answer.removeFirst();
    return answer;
}
