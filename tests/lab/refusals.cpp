#include "tests/lab/refusals.h"

#include "tests/lab/labscene.h"

namespace {

struct Collection {
    std::mutex mutex;
    QStringList warnings;
    QtMessageHandler previous = nullptr;
};

// Threads of the service may still warn while the program ends.
Collection &collection()
{
    static auto *const theCollection = new Collection;
    return *theCollection;
}

void collect(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg) {
        const std::lock_guard<std::mutex> lock(collection().mutex);
        collection().warnings.append(message);
        return;
    }
    collection().previous(type, context, message);
}

QStringList warnings()
{
    const std::lock_guard<std::mutex> lock(collection().mutex);
    return collection().warnings;
}

} // namespace

Refusals::Refusals()
{
    {
        const std::lock_guard<std::mutex> lock(collection().mutex);
        collection().warnings.clear();
    }
    collection().previous = qInstallMessageHandler(collect);
}

Refusals::~Refusals()
{
    qInstallMessageHandler(collection().previous);
}

QString Refusals::told()
{
    return warnings().join(QLatin1Char('\n'));
}

bool Refusals::waitFor(const char *words)
{
    if (!QTest::qWaitFor([] { return !warnings().isEmpty(); }, Lab::Patience))
        return false;
    const QStringList all = warnings();
    if (all.size() == 1 && all.constFirst().contains(QLatin1String(words)))
        return true;
    QWARN(told().toUtf8().constData());
    return false;
}
