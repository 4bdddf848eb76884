#include "simulatortest.h"

#include <QtCore/QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

/// What is named as a scenario file and is none: refused with the reason, and never waited for.
class TestSimulatorFiles : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        HmiSimulator::reset();
        beginWatch();
    }

    void filesThatCannotBeRead();
    void fileThatMayNotBeRead();
};

namespace {

QString reasonFor(const QString &path)
{
    std::string error;
    return HmiSimulator::loadScenario(path.toStdString(), &error) ? QStringLiteral("loaded")
                                                                  : QString::fromStdString(error);
}

} // namespace

void TestSimulatorFiles::filesThatCannotBeRead()
{
    const QTemporaryDir directory;
    const QString missing = directory.filePath("missing.json");
    QCOMPARE(reasonFor(missing), missing + ": there is no such file");
    QCOMPARE(reasonFor(directory.path()), directory.path() + ": is not a file");
    QCOMPARE(reasonFor("/dev/zero"), QString("/dev/zero: is not a file"));
    QCOMPARE(reasonFor({}), QString(": there is no such file"));

    const QString large = directory.filePath("large.json");
    QFile file(large);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(qint64(5) * 1024 * 1024));
    file.close();
    QCOMPARE(reasonFor(large), large + ":1: is larger than 4 MiB");

    // Nobody ever writes to it, or stops to.
    const QString pipe = directory.filePath("pipe.json");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    QCOMPARE(reasonFor(pipe), pipe + ": is not a file");
    const QString link = directory.filePath("link.json");
    QVERIFY(QFile::link(pipe, link));
    QCOMPARE(reasonFor(link), link + ": is not a file");
    const QString circle = directory.filePath("circle.json");
    QVERIFY(QFile::link(circle, circle));
    QCOMPARE(reasonFor(circle), circle + ": there is no such file");
}

void TestSimulatorFiles::fileThatMayNotBeRead()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath("secret.json");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(file.setPermissions({}));
    QCOMPARE(chmod(qPrintable(directory.path()), 0711), 0);
    // Nothing is kept from the one who may do everything.
    constexpr uid_t nobody = 65534;
    const uid_t user = geteuid();
    if (user == 0 && seteuid(nobody) != 0)
        QSKIP("a namespace in which there is but one user, who may do everything");
    const QString reason = reasonFor(path);
    QCOMPARE(seteuid(user), 0);
    QCOMPARE(reason, path + ": Permission denied");
}

PANEL_TEST_MAIN(TestSimulatorFiles)

#include "test_simulator_files.moc"
