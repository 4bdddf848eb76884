#pragma once

#include "simulator/simulator.h"
#include "tests/screen/screenfixture.h"

/// The screen with Wi-Fi chosen on its Network page.
class WifiScreen : public ScreenFixture
{
public:
    WifiScreen(const QSize &size, bool chinese)
        : ScreenFixture(QStringLiteral(PANEL_PLUGIN), size), m_chinese(chinese)
    {
        HmiSimulator::setDelays(5);
        HmiSimulator::setLanguage(chinese ? HMI::SystemSet::CHINESE : HMI::SystemSet::ENGLISH);
        open();
        tapMenu(text("Network", "网络设置"));
        tapText(text("Wi-Fi", "无线网络"));
        HmiSimulator::waitIdle();
        Operator::settle();
    }

    /// All sizes of glass in both languages, as rows of a test.
    static void addSizes()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("chinese");
        for (const QSize &size :
             {QSize(1024, 600), QSize(800, 480), QSize(1280, 800), QSize(480, 800), QSize(600, 1024)}) {
            QTest::addRow("%dx%d-en", size.width(), size.height()) << size << false;
            QTest::addRow("%dx%d-zh", size.width(), size.height()) << size << true;
        }
    }

    QString text(const char *english, const char *chinese) const
    {
        return QString::fromUtf8(m_chinese ? chinese : english);
    }
    void toWifi() { tapText(text("Wi-Fi Settings", "点击进入WLAN设置")); }
    QQuickItem *page() const { return card("QSP::CardWifi"); }
    QQuickItem *part(const char *alias) const { return page()->property(alias).value<QQuickItem *>(); }
    QQuickItem *titleBar() const { return root()->property("titleBar").value<QQuickItem *>(); }
    /// The innermost arrow in the title bar that can be tapped.
    QQuickItem *arrow() const { return Operator::allByClass(titleBar(), "QSP::BeepButton").value(0); }
    void scan() const
    {
        Operator::tap(part("scanButton"));
        HmiSimulator::waitIdle();
        Operator::settle();
    }
    QQuickItem *row(const QString &name) const
    {
        return Operator::ancestorOf(Operator::byText(part("list"), name), "QSP::WifiRow");
    }
    QQuickItem *dialogBody() const { return Operator::byClass(glass(), "QSP::WifiPasswordBody"); }
    QStringList dialogTexts() const
    {
        return dialogBody() ? Operator::visibleTexts(dialogBody()) : QStringList();
    }

private:
    bool m_chinese;
};
