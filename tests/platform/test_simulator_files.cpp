#include "simulatortest.h"

#include <QtCore/QTemporaryDir>

#include <array>

#include <linux/capability.h>
#include <sys/stat.h>
#include <sys/syscall.h>
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

/// Takes from the process what its user may do beyond other users, as long as it lives. Else nothing is kept from root.
class NoPrivileges
{
public:
    NoPrivileges()
    {
        wasTaken = ::syscall(SYS_capget, &m_header, m_before.data()) == 0;
        std::array<__user_cap_data_struct, 2> none = m_before;
        for (__user_cap_data_struct &part : none)
            part.effective = 0;
        wasTaken = wasTaken && ::syscall(SYS_capset, &m_header, none.data()) == 0;
    }
    ~NoPrivileges() { ::syscall(SYS_capset, &m_header, m_before.data()); }
    NoPrivileges(const NoPrivileges &) = delete;
    NoPrivileges &operator=(const NoPrivileges &) = delete;

    bool wasTaken = false;

private:
    __user_cap_header_struct m_header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, 2> m_before{};
};

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
    const NoPrivileges privileges;
    QVERIFY(privileges.wasTaken);
    QCOMPARE(reasonFor(path), path + ": Permission denied");
}

PANEL_TEST_MAIN(TestSimulatorFiles)

#include "test_simulator_files.moc"
