#pragma once

#include "simulator/simulator.h"
#include "tests/screen/screenfixture.h"

/// The screen with Wi-Fi chosen on its Network page.
class WifiScreen : public ScreenFixture
{
public:
    WifiScreen(const QSize &size, bool chinese)
        : ScreenFixture(QStringLiteral(PANEL_PLUGIN), size, compactOptions()), m_chinese(chinese)
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
        const QVector<QSize> sizes = glassSizes();
        for (const QSize &size : sizes) {
            QTest::addRow("%dx%d-en", size.width(), size.height()) << size << false;
            QTest::addRow("%dx%d-zh", size.width(), size.height()) << size << true;
        }
    }

    QString text(const char *english, const char *chinese) const
    {
        return QString::fromUtf8(m_chinese ? chinese : english);
    }
    void toWifi()
    {
        reveal(Operator::byClass(root(), "QSP::WifiTile"));
        tapText(text("Wi-Fi Settings", "点击进入WLAN设置"));
    }
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
    /// Scrolls until what lies below the glass is in sight.
    void reveal(const QQuickItem *item) const
    {
        auto *pool = root()->property("cardPool").value<QQuickItem *>();
        const qreal below = item->mapToItem(pool, {0.0, item->height()}).y() - pool->height();
        if (below > 0.0)
            pool->setProperty("contentY", pool->property("contentY").toReal() + below);
        QCoreApplication::processEvents();
    }
    /// In sight, if there is one.
    QQuickItem *row(const QString &name) const
    {
        QQuickItem *row = Operator::ancestorOf(Operator::byText(part("list"), name), "QSP::WifiRow");
        if (row)
            reveal(row);
        return row;
    }
    QQuickItem *dialogBody() const { return Operator::byClass(glass(), "QSP::WifiPasswordBody"); }
    /// The keyboard leaves no room for the buttons of the dialog on the lowest glass: there it is put away first.
    void endTyping() const
    {
        if (window()->height() < 300)
            Operator::key(window(), Qt::Key_Return);
        Operator::settle();
    }
    QStringList dialogTexts() const
    {
        return dialogBody() ? Operator::visibleTexts(dialogBody()) : QStringList();
    }

private:
    bool m_chinese;
};
