#include "linux/askall.h"

#include <memory>

namespace HmiLinux {

void askAll(const QDBusConnection &bus, const QVector<QDBusMessage> &questions, QObject *context,
            const std::function<void(int, const QDBusMessage &)> &answered, const std::function<void()> &done,
            int limit)
{
    if (questions.isEmpty())
        return done();
    const auto left = std::make_shared<int>(questions.size());
    for (int place = 0; place < questions.size(); ++place) {
        const auto take = [left, place, answered, done](const QDBusMessage &answer) {
            answered(place, answer);
            if (--*left == 0)
                done();
        };
        ask(bus, questions.at(place), context, take, limit);
    }
}

} // namespace HmiLinux
