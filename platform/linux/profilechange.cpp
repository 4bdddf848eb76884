#include "linux/profilechange.h"

#include <QtDBus/QDBusArgument>

namespace HmiLinux {

void changeProfile(const QDBusConnection &bus, const QString &path, Nm::StoreFlag flag, QObject *context,
                   const std::function<Sections(const Sections &)> &changed, const OnAnswer &stored)
{
    const auto store = [=](const QDBusMessage &answer) {
        if (isError(answer))
            return stored(answer);
        QDBusMessage question = Nm::call(path, Nm::profile(), "Update2");
        question << QVariant::fromValue(changed(qdbus_cast<Sections>(answer.arguments().value(0))))
                 << uint(flag) << QVariantMap();
        ask(bus, question, context, stored);
    };
    ask(bus, Nm::call(path, Nm::profile(), "GetSettings"), context, store);
}

} // namespace HmiLinux
