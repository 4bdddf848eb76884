#include "shell/base/guithread.h"
#include "tests/support/paneltest.h"

#include <QtCore/QThread>
#include <QtGui/QGuiApplication>

#include <memory>
#include <thread>
#include <vector>

using QSP::onGuiThread;

class TestGuiThread : public PanelTest
{
    Q_OBJECT

private slots:
    void runsOnTheGuiThread();
    void neverRunsInsideTheCall();
    void keepsTheOrderOfOneThread();
    void isDroppedWhenTheObjectHasGone();
    void isDroppedWhenTheObjectGoesBetween();
    void carriesWhatCannotBeCopied();
    void objectsComeAndGoUnderFire();
};

void TestGuiThread::runsOnTheGuiThread()
{
    QObject object;
    QThread *thread = nullptr;
    int value = 0;
    const std::function<void(int)> callback = onGuiThread("report", &object, [&](QObject *self, int number) {
        QCOMPARE(self, &object);
        thread = QThread::currentThread();
        value = number;
    });
    std::thread([&callback] { callback(42); }).join();
    QVERIFY(!thread);
    QCoreApplication::processEvents();
    QCOMPARE(thread, QThread::currentThread());
    QCOMPARE(value, 42);
}

void TestGuiThread::neverRunsInsideTheCall()
{
    QObject object;
    int calls = 0;
    const std::function<void()> callback = onGuiThread("report", &object, [&calls](QObject *) { ++calls; });
    callback();
    callback();
    QCOMPARE(calls, 0);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 2);
}

void TestGuiThread::keepsTheOrderOfOneThread()
{
    QObject object;
    std::vector<int> seen;
    const std::function<void(int)> callback =
        onGuiThread("report", &object, [&seen](QObject *, int number) { seen.push_back(number); });
    std::thread([&callback] {
        for (int i = 0; i < 100; ++i)
            callback(i);
    }).join();
    QCoreApplication::processEvents();
    QCOMPARE(seen.size(), size_t(100));
    QVERIFY(std::is_sorted(seen.begin(), seen.end()));
}

void TestGuiThread::isDroppedWhenTheObjectHasGone()
{
    auto object = std::make_unique<QObject>();
    int calls = 0;
    const std::function<void()> callback =
        onGuiThread("report", object.get(), [&calls](QObject *) { ++calls; });
    object.reset();
    std::thread(callback).join();
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
}

void TestGuiThread::isDroppedWhenTheObjectGoesBetween()
{
    auto object = std::make_unique<QObject>();
    int calls = 0;
    const std::function<void()> callback =
        onGuiThread("report", object.get(), [&calls](QObject *) { ++calls; });
    std::thread(callback).join();
    object.reset();
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
}

void TestGuiThread::carriesWhatCannotBeCopied()
{
    QObject object;
    int value = 0;
    const std::function<void(std::unique_ptr<int>)> callback =
        onGuiThread("report", &object,
                    [&value](QObject *, std::unique_ptr<int> number) { value = number ? *number : -1; });
    std::thread([&callback] { callback(std::make_unique<int>(7)); }).join();
    QCoreApplication::processEvents();
    QCOMPARE(value, 7);
    callback(nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(value, -1);
}

void TestGuiThread::objectsComeAndGoUnderFire()
{
    int calls = 0;
    int made = 0;
    for (int round = 0; round < 50; ++round) {
        auto object = std::make_unique<QObject>();
        const std::function<void()> callback =
            onGuiThread("report", object.get(), [&calls](QObject *) { ++calls; });
        std::vector<std::thread> threads;
        threads.reserve(4);
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&callback] {
                for (int shot = 0; shot < 25; ++shot)
                    callback();
            });
        QCoreApplication::processEvents();
        if (round % 2)
            object.reset();
        for (std::thread &thread : threads)
            thread.join();
        if (object)
            made += 100;
        QCoreApplication::processEvents();
    }
    QVERIFY2(calls >= made, "every call for a living object arrives");
}

PANEL_TEST_MAIN(TestGuiThread)

#include "test_guithread.moc"
