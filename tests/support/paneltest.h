#pragma once

#include <QtCore/QObject>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

/// The base of every test: a Qt warning or critical message fails the test
/// function in which it appears, unless the function announced it. That the
/// service was slow fails none but those that announce a message of it.
///
/// A derived class may have init() and cleanup() of its own; it then calls
/// these. The same holds for initTestCase().
class PanelTest : public QObject
{
    Q_OBJECT

public:
    PanelTest();
    ~PanelTest() override;

    /// Announces that exactly @p count messages which match @p pattern come before the function ends.
    static void expectMessage(const QString &pattern, int count = 1);
    /// Announces messages of which nobody can know how many come, or whether one does.
    static void allowMessage(const QString &pattern);
    /// Whether all that was announced has come.
    static bool haveMessagesCome();

    /// Prepares the process: platform, renderer, fonts and a private runtime directory.
    static void prepareEnvironment();
    static void prepareApplication();

protected slots:
    void beginWatch();
    void endWatch();

private slots:
    void init() { beginWatch(); }
    void cleanup() { endWatch(); }
};

/// main() of a test program: PANEL_TEST_MAIN(TestBeepButton)
#define PANEL_TEST_MAIN(TestClass)                                                                           \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        PanelTest::prepareEnvironment();                                                                     \
        QGuiApplication application(argc, argv);                                                             \
        PanelTest::prepareApplication();                                                                     \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
