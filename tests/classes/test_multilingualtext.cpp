#include "shell/base/globalinfo.h"
#include "shell/base/multilingualtext.h"
#include "tests/support/journal.h"
#include "tests/support/locales.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquicktext_p.h>

using QSP::GlobalInfo;
using QSP::setMultilingualText;

namespace {

QString version()
{
    return QCoreApplication::translate("QSP::AppRootItem", "Version");
}

// Gives access to the number of receivers, which QObject keeps protected.
struct Receivers : GlobalInfo {
    static int ofLocaleChanged()
    {
        return static_cast<Receivers &>(GlobalInfo::instance()).receivers(SIGNAL(localeChanged()));
    }
};

} // namespace

class TestMultilingualText : public PanelTest
{
    Q_OBJECT

private slots:
    void cleanup();
    void followsTheLanguage();
    void replacingKeepsOneConnection();
    void connectionDiesWithTheItem();
    void nullItemIsIgnored();
    void emptySourceThrows();
};

void TestMultilingualText::cleanup()
{
    GlobalInfo::switchLanguage(Locales::english());
    endWatch();
}

void TestMultilingualText::followsTheLanguage()
{
    QQuickText text;
    setMultilingualText(&text, version);
    QCOMPARE(text.text(), QStringLiteral("Version"));
    GlobalInfo::switchLanguage(Locales::chinese());
    QCOMPARE(text.text(), QStringLiteral("版本信息"));
    GlobalInfo::switchLanguage(Locales::english());
    QCOMPARE(text.text(), QStringLiteral("Version"));
}

void TestMultilingualText::replacingKeepsOneConnection()
{
    QQuickText text;
    setMultilingualText(&text, [] { return QStringLiteral("first"); });
    const int receivers = Receivers::ofLocaleChanged();
    const int children = text.children().size();
    for (int i = 0; i < 1000; ++i)
        setMultilingualText(&text, [i] { return QString::number(i); });
    QCOMPARE(text.text(), QStringLiteral("999"));
    QCOMPARE(Receivers::ofLocaleChanged(), receivers);
    QCOMPARE(text.children().size(), children);
    setMultilingualText(&text, version);
    GlobalInfo::switchLanguage(Locales::chinese());
    QCOMPARE(text.text(), QStringLiteral("版本信息"));
}

void TestMultilingualText::connectionDiesWithTheItem()
{
    const int receivers = Receivers::ofLocaleChanged();
    int asked = 0;
    {
        QQuickText text;
        setMultilingualText(&text, [&asked] {
            ++asked;
            return QString();
        });
        QCOMPARE(Receivers::ofLocaleChanged(), receivers + 1);
    }
    QCOMPARE(Receivers::ofLocaleChanged(), receivers);
    GlobalInfo::switchLanguage(Locales::chinese());
    QCOMPARE(asked, 1);
}

void TestMultilingualText::nullItemIsIgnored()
{
    setMultilingualText(nullptr, version);
}

void TestMultilingualText::emptySourceThrows()
{
    QQuickText text;
    QVERIFY_EXCEPTION_THROWN(setMultilingualText(&text, {}), std::bad_function_call);
}

PANEL_TEST_MAIN(TestMultilingualText)

#include "test_multilingualtext.moc"
