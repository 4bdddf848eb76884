#include "tests/support/inventory.h"

#include <QtCore/private/qhooks_p.h>
#include <QtCore/private/qobject_p.h>
#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

#include <dlfcn.h>
#include <malloc.h>

#include <mutex>
#include <unordered_set>
#include <vector>

namespace {

struct Living {
    std::mutex mutex;
    std::unordered_set<QObject *> objects;
};

// Objects may still go while the program ends.
Living &living()
{
    static auto *const theLiving = new Living;
    return *theLiving;
}

void note(QObject *object)
{
    const std::lock_guard<std::mutex> lock(living().mutex);
    living().objects.insert(object);
}

void strike(QObject *object)
{
    const std::lock_guard<std::mutex> lock(living().mutex);
    living().objects.erase(object);
}

std::vector<QObject *> objectsOfThisThread()
{
    const std::lock_guard<std::mutex> lock(living().mutex);
    std::vector<QObject *> objects;
    for (QObject *object : living().objects) {
        if (object->thread() == QThread::currentThread())
            objects.push_back(object);
    }
    return objects;
}

int connectionsFrom(QObject *object)
{
    const QObjectPrivate::ConnectionData *data = QObjectPrivate::get(object)->connections.loadRelaxed();
    if (!data)
        return 0;
    int connections = 0;
    // From -1, where those stand that listen to any signal.
    for (int signal = -1; signal < data->signalVectorCount(); ++signal) {
        const auto *connection = data->signalVector.loadRelaxed()->at(signal).first.loadRelaxed();
        for (; connection; connection = connection->nextConnectionList.loadRelaxed())
            connections += connection->receiver.loadRelaxed() ? 1 : 0;
    }
    return connections;
}

bool isBelow(const QObject *object, const QObject *ancestor)
{
    while (object && object != ancestor)
        object = object->parent();
    return object != nullptr;
}

// Each compilation of a document makes classes of its own, which go by a number.
QString classOf(const QObject *object)
{
    const QMetaObject *type = object->metaObject();
    while (QByteArray(type->className()).contains("_QML"))
        type = type->superClass();
    return QString::fromLatin1(type->className());
}

// The toolkit's caches of pictures and of fonts, the latter without a name of its own, have a timer while there is
// anything that they may throw away.
bool isCache(const QString &className)
{
    return className == QLatin1String("QQuickPixmapStore") || className == QLatin1String("QObject");
}

std::size_t allocatedBytes()
{
    // The sanitizers' libraries have an allocator of their own.
    using Bytes = std::size_t (*)();
    static const auto sanitized =
        reinterpret_cast<Bytes>(dlsym(RTLD_DEFAULT, "__sanitizer_get_current_allocated_bytes"));
    if (sanitized != nullptr)
        return sanitized();
    const struct mallinfo2 book = mallinfo2();
    return book.uordblks + book.hblkhd;
}

int sumOf(const std::map<QString, int> &numbers)
{
    int sum = 0;
    for (const auto &[name, number] : numbers)
        sum += number;
    return sum;
}

void addGrowth(QStringList *grown, const QString &what, int before, int after)
{
    if (after > before)
        *grown << QStringLiteral("%1 from %2 to %3").arg(what).arg(before).arg(after);
}

void addGrowth(QStringList *grown, const QString &what, const std::map<QString, int> &before,
               const std::map<QString, int> &after)
{
    for (const auto &[name, number] : after) {
        const auto known = before.find(name);
        addGrowth(grown, what.arg(name), known == before.end() ? 0 : known->second, number);
    }
}

} // namespace

void Inventory::watch()
{
    qtHookData[QHooks::AddQObject] = reinterpret_cast<quintptr>(&note);
    qtHookData[QHooks::RemoveQObject] = reinterpret_cast<quintptr>(&strike);
}

Inventory Inventory::take(const QObject *apart)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Inventory inventory;
    inventory.heap = allocatedBytes();
    const auto *dispatcher = QAbstractEventDispatcher::instance();
    for (QObject *object : objectsOfThisThread()) {
        if (apart && isBelow(object, apart))
            continue;
        const QString className = classOf(object);
        ++inventory.objects[className];
        inventory.connections += connectionsFrom(object);
        const int timers = dispatcher->registeredTimers(object).size();
        if (timers > 0 && !isCache(className))
            inventory.timers[className] += timers;
        if (object->inherits("QQuickPopup") && object->property("visible").toBool())
            ++inventory.openPopups;
    }
    return inventory;
}

int Inventory::objectCount() const
{
    return sumOf(objects);
}

int Inventory::timerCount() const
{
    return sumOf(timers);
}

QStringList Inventory::growthSince(const Inventory &before) const
{
    QStringList grown;
    addGrowth(&grown, QStringLiteral("%1"), before.objects, objects);
    addGrowth(&grown, QStringLiteral("running timers of %1"), before.timers, timers);
    addGrowth(&grown, QStringLiteral("connections"), before.connections, connections);
    addGrowth(&grown, QStringLiteral("open popups"), before.openPopups, openPopups);
    return grown;
}

std::size_t Inventory::heapGrowthSince(const Inventory &before) const
{
    return heap > before.heap ? heap - before.heap : 0;
}
