// Tells the thread sanitizer of the order that Qt's event queue keeps.
//
// Qt is not built for the sanitizer, so that it does not see that a queued call comes after its queuing. What is
// queued with QMetaObject::invokeMethod() by instrumented code passes here on its way into Qt; nothing else that
// Qt does is taken for an order.

#include <QtCore/QObject>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

#include <cstdlib>

namespace {

using Slot = QtPrivate::QSlotObjectBase;

/// A slot that begins after it was made, and says so.
class OrderedSlot : public Slot
{
public:
    explicit OrderedSlot(Slot *slot) : Slot(&OrderedSlot::act), m_slot(slot) { __tsan_release(this); }

private:
    static void act(int which, Slot *self, QObject *receiver, void **arguments, bool *result)
    {
        auto *ordered = static_cast<OrderedSlot *>(self);
        switch (which) {
        case Destroy:
            __tsan_acquire(ordered); // one that was never called
            ordered->m_slot->destroyIfLastRef();
            delete ordered;
            break;
        case Call:
            __tsan_acquire(ordered);
            ordered->m_slot->call(receiver, arguments);
            break;
        case Compare:
            *result = false;
            break;
        default:
            break;
        }
    }

    Slot *m_slot;
};

} // namespace

// In place of Qt's own, which it calls.
bool QMetaObject::invokeMethodImpl(QObject *object, Slot *slot, Qt::ConnectionType type, void *ret)
{
    using Invoke = bool (*)(QObject *, Slot *, Qt::ConnectionType, void *);
    static const auto invoke = reinterpret_cast<Invoke>(dlsym(
        RTLD_NEXT,
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv"));
    if (!invoke)
        std::abort();
    return invoke(object, new OrderedSlot(slot), type, ret);
}
