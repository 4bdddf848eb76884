#include "tests/screen/touchareatest.h"

#include <QtGui/QGuiApplication>

/// The touch areas of lists and dialogs at every size, and those of the page on which most dialogs open.
class TestTouchPopups : public TouchAreaTest
{
    Q_OBJECT

private slots:
    void timeEditor_data() { addSizes(); }
    void timeEditor();
    void listAndTestResult_data() { addSizes(); }
    void listAndTestResult();
    void rebootQuestion_data() { addSizes(); }
    void rebootQuestion();
    void wifi_data() { addSizes(); }
    void wifi();
};

void TestTouchPopups::timeEditor()
{
    build();
    tapMenu(General);
    Operator::tap(Operator::byClass(card("QSP::CardTime"), "QSP::BeepButton"));
    QVERIFY(isShown("OK"));
    look("editor", 7);
}

void TestTouchPopups::listAndTestResult()
{
    build();
    tapMenu(Network);
    QQuickItem *adapter = card("QSP::CardNIC");
    scrollTo(adapter->y());
    QQuickItem *box = Operator::byClass(adapter, "QQuickComboBox");
    const auto *list = box->property("popup").value<QObject *>();
    Operator::tap(box);
    QTRY_VERIFY(list->property("opened").toBool());
    look("list", 3);
    Operator::key(m_fixture->window(), Qt::Key_Escape);
    QTRY_VERIFY(!list->property("visible").toBool());
    Operator::tap(alias(adapter, "testBeepButton"));
    HmiSimulator::waitIdle();
    QTRY_VERIFY(isShown("Test Result"));
    look("test result", 1);
}

void TestTouchPopups::rebootQuestion()
{
    m_options.insert(QStringLiteral("panelConfirmReboot"), true);
    build();
    m_fixture->tapMenu(QStringLiteral("Reboot"));
    QQuickItem *answer = Operator::ancestorOf(Operator::byText(m_fixture->glass(), QStringLiteral("Cancel")),
                                              "QSP::BeepButton");
    QVERIFY(answer);
    QTRY_VERIFY(answer->isEnabled());
    look("question", 2);
}

void TestTouchPopups::wifi()
{
    build();
    tapMenu(Network);
    select("Wi-Fi");
    m_fixture->tapText(QStringLiteral("Wi-Fi Settings"));
    QQuickItem *page = card("QSP::CardWifi");
    QVERIFY(page);
    lookScrolled("before a scan", 3);
    Operator::tap(alias(page, "scanButton"));
    HmiSimulator::waitIdle();
    QTRY_VERIFY(isShown("Maintenance"));
    lookScrolled("networks", 8);
    QQuickItem *row =
        Operator::ancestorOf(Operator::byText(page, QStringLiteral("Maintenance")), "QSP::WifiRow");
    reveal(row);
    Operator::tap(row);
    QTRY_VERIFY(Operator::byClass(m_fixture->glass(), "QSP::WifiPasswordBody"));
    look("password", 4);
}

PANEL_TEST_MAIN(TestTouchPopups)

#include "test_touch_popups.moc"
