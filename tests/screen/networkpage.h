#pragma once

#include "simulator/simulator.h"
#include "tests/screen/screenfixture.h"
#include "tests/support/journal.h"

#include <QtCore/QTimer>

#include <memory>

/// The Network page as an operator works it: adapters, rows by their labels, fields by typing.
class NetworkPage
{
public:
    static constexpr int allAdapters = 1 | 2 | 4 | 16 | 64;

    /// Opens the screen and goes to the page. The simulated panel must be set up before.
    explicit NetworkPage(const QSize &size = {1024, 600},
                         const QString &menuText = QStringLiteral("Network"));

    ScreenFixture &screen() { return *m_screen; }
    QQuickWindow *window() const { return m_screen->window(); }
    QQuickItem *glass() const { return m_screen->glass(); }
    /// Takes the whole screen down, as a host may.
    void destroy() { m_screen.reset(); }

    /// The panel's language is changed elsewhere, and the screen notices.
    void switchLanguage(HMI::SystemSet::Language language);

    // The cards, visible or not; null before they were made.
    QQuickItem *network() const { return card("QSP::CardNetwork"); }
    QQuickItem *dns() const { return card("QSP::CardDNS"); }
    QQuickItem *defaultAdapter() const { return card("QSP::CardNIC"); }

    QQuickItem *adapterButton(const QString &label) const;
    QStringList adapterLabels() const;
    QString selected() const;
    void select(const QString &label);

    /// The visible row of the network card with that label.
    QQuickItem *row(const QString &label) const;
    QStringList rowLabels() const;
    QQuickItem *toggleOf(const QString &label) const;
    bool isOn(const QString &label) const { return toggleOf(label)->property("on").toBool(); }
    void tapToggle(const QString &label);

    QQuickItem *addressOf(const QString &label) const;
    QString address(const QString &label) const { return addressOf(label)->property("ip").toString(); }
    bool isEditable(const QString &label) const { return addressOf(label)->isEnabled(); }
    QQuickItem *dnsInput(int number) const;
    QString dnsAddress(int number) const { return dnsInput(number)->property("ip").toString(); }
    /// One of the four fields of an address input.
    static QQuickItem *octet(QQuickItem *input, int index);
    /// Taps a field, clears it and types.
    void edit(QQuickItem *input, int index, const QString &digits);

    /// The text at the right of a row, such as a state.
    QString status(const QString &label) const;
    QColor statusColor(const QString &label) const;
    QQuickItem *statusItem(const QString &label) const;

    /// Opens the list of the combo box in that item and waits for it; what stands in the list.
    QQuickItem *openList(QQuickItem *below);

    /// Scrolls until the item is in sight.
    void reveal(QQuickItem *item);
    void tap(QQuickItem *item);
    /// The text of an open dialog or list, too.
    bool isShown(const QString &text) const { return Operator::byText(glass(), text) != nullptr; }

    /// The status timer of that interval, or null before it was needed.
    QTimer *timer(int interval) const;
    bool isWatching(int interval) const { return timer(interval) && timer(interval)->isActive(); }
    /// Whether an adapter that was switched on is to ask for a lease yet.
    bool isLeaseDue() const;
    /// Lets the timer expire now.
    static void expire(QTimer *timer) { QMetaObject::invokeMethod(timer, "timeout"); }

private:
    QQuickItem *card(const char *className) const;

    std::unique_ptr<ScreenFixture> m_screen;
};
