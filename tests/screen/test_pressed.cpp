#include "simulator/simulator.h"
#include "tests/screen/screenfixture.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

namespace {

QQuickItem *alias(const QObject *object, const char *name)
{
    return object->property(name).value<QQuickItem *>();
}

bool isControl(const QQuickItem *item)
{
    for (const char *name :
         {"QSP::BeepButton", "QQuickComboBox", "QQuickItemDelegate", "QSP::StepSlider", "QQuickScrollBar"}) {
        if (item->inherits(name))
            return item->isVisible() && item->isEnabled();
    }
    return false;
}

QString describe(QQuickItem *item)
{
    return QString::fromLatin1(item->metaObject()->className()) + QLatin1Char('(') +
           Operator::visibleTexts(item).join(QLatin1Char(' ')) +
           QStringLiteral(") at %1,%2").arg(Operator::centerOf(item).x()).arg(Operator::centerOf(item).y());
}

// Pixels whose change can be seen.
int changedPixels(const QImage &one, const QImage &other, const QRect &area)
{
    int changed = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb before = one.pixel(x, y);
            const QRgb after = other.pixel(x, y);
            const int difference =
                qMax(qAbs(qRed(before) - qRed(after)),
                     qMax(qAbs(qGreen(before) - qGreen(after)), qAbs(qBlue(before) - qBlue(after))));
            changed += difference > 8;
        }
    }
    return changed;
}

} // namespace

/// Whatever can be pressed shows it: in the next frame, on the glass, until the press ends.
class TestPressed : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyControlShowsIt_data();
    void everyControlShowsIt();

private:
    QQuickWindow *window() const { return m_screen->window(); }
    bool isNarrow() const { return window()->width() < 800; }
    /// The next frame, as it is on the glass.
    QImage frame() const { return Operator::picture(window()); }
    /// Presses all that can be pressed in @p place; what does not show it is noted.
    void pressAllIn(QQuickItem *place, int least, const char *where);
    void checkPress(QQuickItem *control, const char *where);
    bool reveal(QQuickItem *item) const;
    void press(QQuickItem *item) const;
    /// Nothing is activated: the press is taken away, as a scroll or a popup takes it away.
    void endPress(QQuickItem *item) const;
    /// What is clicked on the way.
    void tap(QQuickItem *item) const;
    void toPage(const QString &entry);
    QQuickItem *topPopup() const;
    void pressAllInPopup(int least, const char *where) { pressAllIn(topPopup(), least, where); }

    void general();
    void network();
    void defaultAdapter();
    void wifi();

    std::unique_ptr<ScreenFixture> m_screen;
    QStringList m_silent;
};

void TestPressed::init()
{
    beginWatch();
    HmiSimulator::reset();
    HmiSimulator::setDelays(1);
    m_silent.clear();
}

void TestPressed::cleanup()
{
    m_screen.reset();
    endWatch();
}

bool TestPressed::reveal(QQuickItem *item) const
{
    QQuickItem *pool = alias(m_screen->root(), "cardPool");
    if (!pool->isAncestorOf(item))
        return true;
    const qreal top = item->mapToItem(pool, QPointF()).y();
    const qreal over = top + item->height() - pool->height();
    const qreal y = pool->property("contentY").toReal();
    pool->setProperty("contentY", over > 0.0 ? y + over : y + qMin(0.0, top));
    return QRectF(0.0, 0.0, pool->width(), pool->height())
        .contains(item->mapToItem(pool, QPointF(item->width(), item->height()) / 2.0));
}

void TestPressed::press(QQuickItem *item) const
{
    QSignalSpy changed(item, SIGNAL(pressedChanged()));
    QTest::mousePress(window(), Qt::LeftButton, Qt::NoModifier, Operator::centerOf(item));
    // A page that scrolls holds a press back for a while.
    if (changed.isEmpty())
        changed.wait();
    QVERIFY2(item->property("pressed").toBool(), qPrintable(describe(item)));
}

void TestPressed::endPress(QQuickItem *item) const
{
    item->ungrabMouse();
    QVERIFY(!item->property("pressed").toBool());
    QTest::mouseRelease(window(), Qt::LeftButton, Qt::NoModifier, {1, window()->height() - 1});
    QCoreApplication::processEvents();
}

void TestPressed::checkPress(QQuickItem *control, const char *where)
{
    QVERIFY2(reveal(control), qPrintable(describe(control)));
    const QRect area = control->mapRectToScene({0.0, 0.0, control->width(), control->height()}).toRect() &
                       QRect(QPoint(), window()->size());
    const QImage before = frame();
    press(control);
    const QImage during = frame();
    endPress(control);
    const QImage after = frame();
    const QString what = QString::fromLatin1(where) + QStringLiteral(": ") + describe(control);
    // A pixel of a rounded corner may come out otherwise each time that a part is drawn over.
    constexpr int fewestSeen = 10;
    if (changedPixels(before, during, area) < fewestSeen)
        m_silent << what;
    if (changedPixels(before, after, area) >= fewestSeen)
        m_silent << what + QStringLiteral(" stays so");
}

void TestPressed::pressAllIn(QQuickItem *place, int least, const char *where)
{
    QVERIFY2(place, where);
    const auto controls = Operator::items(place, [](QQuickItem *item) {
        // Not what another control covers.
        return isControl(item) && item->width() > 0.0 && Operator::items(item, isControl).size() == 1;
    });
    QVERIFY2(
        controls.size() >= least,
        qPrintable(QStringLiteral("%1: only %2 controls").arg(QLatin1String(where)).arg(controls.size())));
    for (QQuickItem *control : controls)
        checkPress(control, where);
}

void TestPressed::tap(QQuickItem *item) const
{
    QVERIFY(item);
    QVERIFY(reveal(item));
    Operator::tap(item);
    // The list of another adapter or page is made at once; what the panel reports comes soon.
    HmiSimulator::waitIdle();
    Operator::awaitFrame(window());
}

void TestPressed::toPage(const QString &entry)
{
    QQuickItem *menu = alias(m_screen->root(), "menuBar");
    if (!menu->isVisible())
        tap(Operator::allByClass(alias(m_screen->root(), "titleBar"), "QSP::BeepButton").constLast());
    if (!menu->isVisible())
        tap(Operator::byClass(alias(m_screen->root(), "titleBar"), "QSP::BeepButton"));
    tap(Operator::byText(menu, entry));
    // A clock that goes on would change the picture by itself. One that is stopped on its way to the beginning
    // of the next second starts again there.
    const auto timers = m_screen->root()->findChildren<QTimer *>();
    for (QTimer *timer : timers)
        timer->blockSignals(true);
}

QQuickItem *TestPressed::topPopup() const
{
    return Operator::allByClass(m_screen->glass(), "QQuickPopupItem").value(0);
}

void TestPressed::general()
{
    toPage(QStringLiteral("General"));
    // Minus, slider, plus, clock, switch; and what is around the page.
    pressAllIn(m_screen->root(), isNarrow() ? 6 : 10, "General");
    tap(Operator::byClass(m_screen->card("QSP::CardTime"), "QSP::BeepButton"));
    pressAllInPopup(1, "clock editor");
    tap(Operator::ancestorOf(Operator::byText(topPopup(), QStringLiteral("OK")), "QSP::BeepButton"));
    QTRY_VERIFY(!topPopup());
}

void TestPressed::network()
{
    toPage(QStringLiteral("Network"));
    for (const char *adapter : {"LAN1", "Wi-Fi", "4G", "VPN", "LAN0"}) {
        tap(Operator::byText(m_screen->card("QSP::CardNetwork"), QLatin1String(adapter)));
        pressAllIn(alias(m_screen->root(), "cardsParent"), 6, adapter);
        if (qstrcmp(adapter, "VPN") != 0)
            continue;
        tap(Operator::byClass(m_screen->card("QSP::CardNetwork"), "QSP::ComboBox"));
        pressAllInPopup(2, "servers");
        Operator::key(window(), Qt::Key_Escape);
        QTRY_VERIFY(!topPopup());
    }
}

void TestPressed::defaultAdapter()
{
    QQuickItem *card = m_screen->card("QSP::CardNIC");
    tap(alias(card, "combobox"));
    pressAllInPopup(3, "adapters");
    Operator::key(window(), Qt::Key_Escape);
    QTRY_VERIFY(!topPopup());
    tap(alias(card, "testBeepButton"));
    QTRY_VERIFY(topPopup());
    pressAllInPopup(1, "ping test");
    tap(Operator::byClass(topPopup(), "QSP::BeepButton"));
    QTRY_VERIFY(!topPopup());
}

void TestPressed::wifi()
{
    tap(Operator::byText(m_screen->card("QSP::CardNetwork"), QStringLiteral("Wi-Fi")));
    tap(Operator::byText(m_screen->card("QSP::CardNetwork"), QStringLiteral("Wi-Fi Settings")));
    QQuickItem *page = m_screen->card("QSP::CardWifi");
    tap(alias(page, "scanButton"));
    QTRY_VERIFY(alias(page, "scanButton")->isEnabled());
    // Arrow, scan, reset and some networks.
    pressAllIn(m_screen->root(), 6, "Wi-Fi");
    tap(Operator::byText(page, QStringLiteral("Maintenance")));
    QTRY_VERIFY(topPopup());
    pressAllInPopup(3, "password");
    tap(Operator::byClass(topPopup(), "QSP::BeepButton"));
    QTRY_VERIFY(!topPopup());
}

void TestPressed::everyControlShowsIt_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("buzzer");
    const QVector<QSize> sizes = glassSizes();
    for (const QSize &size : sizes)
        QTest::addRow("%dx%d", size.width(), size.height()) << size << false;
    QTest::newRow("1024x600, keys beep") << QSize(1024, 600) << true;
}

void TestPressed::everyControlShowsIt()
{
    QFETCH(QSize, size);
    QFETCH(bool, buzzer);
    HmiSimulator::setBuzzerOn(buzzer);
    m_screen = std::make_unique<ScreenFixture>(QStringLiteral(PANEL_PLUGIN), size, compactOptions());
    m_screen->open();
    // Long enough to be held back, no longer than that.
    alias(m_screen->root(), "cardPool")->setProperty("pressDelay", 1);
    if (isNarrow())
        pressAllIn(m_screen->root(), 5, "menu");
    general();
    network();
    defaultAdapter();
    wifi();
    toPage(QStringLiteral("Language"));
    pressAllIn(m_screen->card("QSP::CardLanguage"), 1, "Language");
    QVERIFY2(m_silent.isEmpty(), qPrintable(m_silent.join(QLatin1Char('\n'))));
}

PANEL_TEST_MAIN(TestPressed)

#include "test_pressed.moc"
