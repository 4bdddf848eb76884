#include "tests/support/paneltest.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <mutex>

namespace {

struct Expectation {
    QRegularExpression pattern;
    int left;
};

struct Watch {
    // One that the thread sanitizer sees waited for; the toolkit waits in code of its own.
    std::mutex mutex;
    QVector<Expectation> expected;
    QVector<QRegularExpression> allowed;
    QStringList unexpected;
    QtMessageHandler previous = nullptr;
};

// Messages may still come while the program ends, so the watch outlives everything.
Watch &watch()
{
    static auto *const theWatch = new Watch;
    return *theWatch;
}

// How long the simulated panel is kept from answering on a machine that does much else is no test's business, but
// for one that announces something of the kind. To be asked with the watch locked.
bool isOfTheMachine(const QMessageLogContext &context, const QString &message)
{
    if (qstrcmp(context.category, "panelsettings.service") != 0)
        return false;
    const auto &expected = watch().expected;
    return std::none_of(expected.begin(), expected.end(), [&message](const Expectation &expectation) {
        return expectation.pattern.match(message).hasMatch();
    });
}

// To be asked with the watch locked.
QStringList missingMessages()
{
    QStringList missing;
    for (const Expectation &expectation : qAsConst(watch().expected)) {
        if (expectation.left > 0)
            missing << expectation.pattern.pattern();
    }
    return missing;
}

void watchMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg) {
        const std::lock_guard<std::mutex> lock(watch().mutex);
        for (Expectation &expectation : watch().expected) {
            if (expectation.left > 0 && expectation.pattern.match(message).hasMatch()) {
                --expectation.left;
                return;
            }
        }
        const auto matches = [&message](const QRegularExpression &pattern) {
            return pattern.match(message).hasMatch();
        };
        if (std::any_of(watch().allowed.cbegin(), watch().allowed.cend(), matches))
            return;
        if (!isOfTheMachine(context, message))
            watch().unexpected << message;
    }
    if (watch().previous)
        watch().previous(type, context, message);
}

} // namespace

PanelTest::PanelTest() = default;
PanelTest::~PanelTest() = default;

void PanelTest::expectMessage(const QString &pattern, int count)
{
    const std::lock_guard<std::mutex> lock(watch().mutex);
    watch().expected.append({QRegularExpression(pattern), count});
}

void PanelTest::allowMessage(const QString &pattern)
{
    const std::lock_guard<std::mutex> lock(watch().mutex);
    watch().allowed.append(QRegularExpression(pattern));
}

bool PanelTest::haveMessagesCome()
{
    const std::lock_guard<std::mutex> lock(watch().mutex);
    return missingMessages().isEmpty();
}

void PanelTest::prepareEnvironment()
{
    static QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software");
}

void PanelTest::prepareApplication()
{
    // The platforms choose different fonts of their own; one font makes all runs alike.
    QFont font(QStringLiteral("WenQuanYi Micro Hei"));
    font.setPixelSize(16);
    QGuiApplication::setFont(font);
    QFont::insertSubstitution(QStringLiteral("1"), font.family());
}

void PanelTest::beginWatch()
{
    const std::lock_guard<std::mutex> lock(watch().mutex);
    watch().expected.clear();
    watch().allowed.clear();
    watch().unexpected.clear();
    // The test library puts its own handler in place for each run; ours goes in front of it.
    const QtMessageHandler current = qInstallMessageHandler(watchMessage);
    if (current != watchMessage)
        watch().previous = current;
}

void PanelTest::endWatch()
{
    QStringList unexpected;
    QStringList missing;
    {
        const std::lock_guard<std::mutex> lock(watch().mutex);
        unexpected = watch().unexpected;
        missing = missingMessages();
        watch().unexpected.clear();
        watch().expected.clear();
        watch().allowed.clear();
    }
    qInstallMessageHandler(watch().previous);
    if (!unexpected.isEmpty())
        QTest::qFail(qPrintable("unannounced message: " + unexpected.join(QLatin1String(" | "))), __FILE__,
                     __LINE__);
    if (!missing.isEmpty())
        QTest::qFail(qPrintable("announced message did not come: " + missing.join(QLatin1String(" | "))),
                     __FILE__, __LINE__);
}
