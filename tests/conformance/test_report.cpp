#include "tests/support/paneltest.h"

#include "conformance/message.h"

#include <QtCore/QXmlStreamReader>
#include <QtGui/QGuiApplication>

#include <sstream>

using namespace Conformance;

/// What a report tells, and that a result comes through the pipe as it was.
class TestReport : public PanelTest
{
    Q_OBJECT

private slots:
    void countsAndFails();
    void printsFindings();
    void tapHasOneLineATest();
    void junitIsXmlWhateverWasFound();
    void resultsTravel();
    void fieldsTravel_data();
    void fieldsTravel();
};

namespace {

Result resultWith(Verdict verdict, const std::string &name)
{
    Result result;
    result.group = "dns";
    result.name = name;
    result.adapter = "LAN0";
    result.verdict = verdict;
    return result;
}

/// One result of each kind; the failure has found what no file should have to hold.
Report everyKind()
{
    Report report("lib.so");
    report.add(resultWith(Verdict::Passed, "passed"));
    report.add(resultWith(Verdict::Skipped, "skipped"));
    report.add(resultWith(Verdict::CannotComply, "refused"));
    report.add(resultWith(Verdict::Warned, "warned"));
    Result failed = resultWith(Verdict::Failed, "failed");
    failed.findings.push_back({"setDns", "LAN0", "<a & \"b\">", "line\nfeed, \x01\xFF"});
    failed.notes.emplace_back("]]>");
    report.add(failed);
    return report;
}

QString written(void (Report::*form)(std::ostream &) const)
{
    std::ostringstream out;
    (everyKind().*form)(out);
    return QString::fromStdString(out.str());
}

} // namespace

void TestReport::countsAndFails()
{
    Report report("lib.so");
    QVERIFY(!report.hasFailed());
    for (const Verdict verdict : {Verdict::Passed, Verdict::Skipped, Verdict::CannotComply, Verdict::Warned})
        report.add(resultWith(verdict, "some"));
    QVERIFY(!report.hasFailed());
    report.add(resultWith(Verdict::Failed, "other"));
    QVERIFY(report.hasFailed());
    QCOMPARE(report.count(Verdict::Warned), 1);
    QVERIFY(report.has("dns.other LAN0"));
    QVERIFY(!report.has("dns.other"));
}

void TestReport::printsFindings()
{
    std::ostringstream out;
    Report::print(out, everyKind().results().back());
    QCOMPARE(QString::fromStdString(out.str()),
             QStringLiteral(
                 "FAILURE        dns.failed LAN0\n"
                 "               setDns(LAN0): expected: <a & \"b\">; found: line\\x0Afeed, \\x01\\xFF\n"
                 "               ]]>\n"));
    QCOMPARE(written(&Report::printSummary),
             QStringLiteral(
                 "lib.so: 5 results: 1 passed, 1 cannot comply, 1 with a warning, 1 failed, 1 skipped\n"));
}

void TestReport::tapHasOneLineATest()
{
    const QStringList lines = written(&Report::writeTap).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QStringList expected = {
        QStringLiteral("TAP version 13"),
        QStringLiteral("1..5"),
        QStringLiteral("ok 1 - dns.passed LAN0"),
        QStringLiteral("ok 2 - dns.skipped LAN0 # SKIP"),
        QStringLiteral("ok 3 - dns.refused LAN0 (cannot comply)"),
        QStringLiteral("ok 4 - dns.warned LAN0 (WARNING)"),
        QStringLiteral("not ok 5 - dns.failed LAN0"),
        QStringLiteral("# setDns(LAN0): expected: <a & \"b\">; found: line\\x0Afeed, \\x01\\xFF"),
        QStringLiteral("# ]]>"),
    };
    QCOMPARE(lines, expected);
}

void TestReport::junitIsXmlWhateverWasFound()
{
    QXmlStreamReader xml(written(&Report::writeJunit));
    QStringList elements;
    QString failure;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        elements.append(xml.name().toString());
        if (xml.name() == QLatin1String("testsuite"))
            QCOMPARE(xml.attributes().value(QLatin1String("failures")).toString(), QStringLiteral("1"));
        if (xml.name() == QLatin1String("failure"))
            failure = xml.readElementText();
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(elements.count(QStringLiteral("testcase")), 5);
    QCOMPARE(elements.count(QStringLiteral("skipped")), 1);
    QCOMPARE(elements.count(QStringLiteral("system-out")), 2);
    QCOMPARE(failure,
             QStringLiteral("setDns(LAN0): expected: <a & \"b\">; found: line\\x0Afeed, \\x01\\xFF\n]]>"));
}

void TestReport::resultsTravel()
{
    const Report report = everyKind();
    for (const Result &sent : report.results()) {
        std::string line = encode(fieldsOf(sent));
        QCOMPARE(line.back(), '\n');
        line.pop_back();
        const std::optional<Result> received = resultOf(decode(line));
        QVERIFY(received.has_value());
        QCOMPARE(received->title(), sent.title());
        QVERIFY(received->verdict == sent.verdict);
        QVERIFY(received->notes == sent.notes);
        QCOMPARE(received->findings.size(), sent.findings.size());
        if (!sent.findings.empty())
            QCOMPARE(received->findings.front().answer, sent.findings.front().answer);
    }
    QVERIFY(!resultOf({"dns", "stored"}).has_value());
    QVERIFY(!resultOf({"dns", "stored", "LAN0", "0", "1", "setDns"}).has_value());
}

void TestReport::fieldsTravel_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("separators") << QByteArray("a\tb\nc\\d\\n\\");
    QTest::newRow("a network's name") << QByteArray("x\0y\xFF", 4);
}

void TestReport::fieldsTravel()
{
    QFETCH(const QByteArray, field);
    const Fields fields = {"first", field.toStdString(), field.toStdString()};
    std::string line = encode(fields);
    line.pop_back();
    QCOMPARE(line.find('\n'), std::string::npos);
    QVERIFY(decode(line) == fields);
}

PANEL_TEST_MAIN(TestReport)
#include "test_report.moc"
