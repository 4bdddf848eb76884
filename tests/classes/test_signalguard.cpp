#include "tests/support/paneltest.h"

#include <cerrno>
#include <csignal>

#include <dlfcn.h>
#include <unistd.h>

/// That no test can signal processes that it did not start. Asked with the signal that is none.
class TestSignalGuard : public PanelTest
{
    Q_OBJECT

private slots:
    void init() { beginWatch(); }
    void groupsAreRefused_data();
    void groupsAreRefused();
    void oneProcessIsNot();
    void librariesAskHereToo();
};

void TestSignalGuard::groupsAreRefused_data()
{
    QTest::addColumn<int>("process");
    QTest::newRow("everything of this user") << -1;
    QTest::newRow("the own group") << 0;
    QTest::newRow("a group by its number") << -int(getpgrp());
}

void TestSignalGuard::groupsAreRefused()
{
    QFETCH(const int, process);
    errno = 0;
    QCOMPARE(::kill(process, 0), -1);
    QCOMPARE(errno, EPERM);
}

void TestSignalGuard::oneProcessIsNot()
{
    QCOMPARE(::kill(getpid(), 0), 0);
}

void TestSignalGuard::librariesAskHereToo()
{
    // What libraries of the process find, QProcess among them, is the first that is exported.
    Dl_info place{};
    QVERIFY(dladdr(dlsym(RTLD_DEFAULT, "kill"), &place));
    QCOMPARE(QFileInfo(QString::fromLocal8Bit(place.dli_fname)).canonicalFilePath(),
             QCoreApplication::applicationFilePath());
}

PANEL_TEST_MAIN(TestSignalGuard)
#include "test_signalguard.moc"
