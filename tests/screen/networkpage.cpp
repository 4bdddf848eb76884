#include "tests/screen/networkpage.h"

#include <QtGui/QColor>

#include <algorithm>

namespace {

QQuickItem *alias(const QObject *item, const char *name)
{
    return item ? qobject_cast<QQuickItem *>(item->property(name).value<QObject *>()) : nullptr;
}

} // namespace

NetworkPage::NetworkPage(const QSize &size, const QString &menuText)
    : m_screen(std::make_unique<ScreenFixture>(QStringLiteral(PANEL_PLUGIN), size, compactOptions()))
{
    m_screen->open();
    m_screen->tapMenu(menuText);
}

void NetworkPage::switchLanguage(HMI::SystemSet::Language language)
{
    HmiSimulator::setLanguage(language);
    m_screen->open();
}

QQuickItem *NetworkPage::card(const char *className) const
{
    return Operator::items(m_screen->root(),
                           [className](QQuickItem *item) { return item->inherits(className); })
        .value(0);
}

QQuickItem *NetworkPage::adapterButton(const QString &label) const
{
    return Operator::ancestorOf(Operator::byText(alias(network(), "nicButtonFlow"), label),
                                "QSP::BeepButton");
}

QStringList NetworkPage::adapterLabels() const
{
    return Operator::visibleTexts(alias(network(), "nicButtonFlow"));
}

QString NetworkPage::selected() const
{
    QStringList checked;
    const auto buttons = Operator::allByClass(alias(network(), "nicButtonFlow"), "QSP::BeepButton");
    for (const QQuickItem *button : buttons) {
        if (button->property("checked").toBool())
            checked << alias(button, "txt")->property("text").toString();
    }
    return checked.join(QLatin1Char('+'));
}

void NetworkPage::select(const QString &label)
{
    tap(adapterButton(label));
    Operator::settle();
}

QQuickItem *NetworkPage::row(const QString &label) const
{
    const QList<QQuickItem *> rows = alias(network(), "layout")->childItems();
    for (QQuickItem *row : rows) {
        if (row->isVisible() && row->height() > 0 && row != alias(network(), "nicButtonFlow")->parentItem() &&
            Operator::byText(row, label))
            return row;
    }
    return nullptr;
}

QStringList NetworkPage::rowLabels() const
{
    QStringList labels;
    const QList<QQuickItem *> rows = alias(network(), "layout")->childItems().mid(2);
    for (QQuickItem *row : rows) {
        if (row->isVisible())
            labels << Operator::visibleTexts(row).value(0);
    }
    return labels;
}

QQuickItem *NetworkPage::toggleOf(const QString &label) const
{
    return Operator::byClass(row(label), "QSP::BeepSwitch");
}

void NetworkPage::tapToggle(const QString &label)
{
    tap(toggleOf(label));
    Operator::settle();
}

QQuickItem *NetworkPage::addressOf(const QString &label) const
{
    return Operator::byClass(row(label), "QSP::CIpInput");
}

QQuickItem *NetworkPage::dnsInput(int number) const
{
    return alias(dns(), number == 1 ? "dns1Input" : "dns2Input");
}

QQuickItem *NetworkPage::octet(QQuickItem *input, int index)
{
    return Operator::allByClass(input, "QQuickTextInput").value(index);
}

void NetworkPage::edit(QQuickItem *input, int index, const QString &digits)
{
    QQuickItem *field = octet(input, index);
    reveal(field);
    tap(field);
    Operator::settle();
    QVERIFY2(field->hasActiveFocus(), "the field did not take the focus");
    Operator::type(window(), digits);
}

QQuickItem *NetworkPage::statusItem(const QString &label) const
{
    return Operator::allByClass(row(label), "QQuickText").value(1);
}

QString NetworkPage::status(const QString &label) const
{
    return statusItem(label)->property("text").toString();
}

QColor NetworkPage::statusColor(const QString &label) const
{
    return statusItem(label)->property("color").value<QColor>();
}

QQuickItem *NetworkPage::openList(QQuickItem *below)
{
    QQuickItem *box = Operator::byClass(below, "QQuickComboBox");
    tap(box);
    auto *list = box->property("popup").value<QObject *>();
    if (!QTest::qWaitFor([list] { return list->property("opened").toBool(); }))
        QTest::qFail("the list did not open", __FILE__, __LINE__);
    Operator::settle();
    return alias(list, "contentItem");
}

void NetworkPage::reveal(QQuickItem *item)
{
    QVERIFY(item);
    auto *pool = alias(m_screen->root(), "cardPool");
    const double top = item->mapToItem(pool, QPointF()).y();
    const double over = top + item->height() - pool->height();
    const double y = pool->property("contentY").toDouble();
    if (over > 0.0)
        pool->setProperty("contentY", y + over);
    else if (top < 0.0)
        pool->setProperty("contentY", y + top);
    QCoreApplication::processEvents();
}

void NetworkPage::tap(QQuickItem *item)
{
    reveal(item);
    Operator::tap(item);
}

bool NetworkPage::isLeaseDue() const
{
    const auto timers = m_screen->root()->findChildren<QTimer *>(QStringLiteral("leaseRequest"));
    return std::any_of(timers.begin(), timers.end(), [](const QTimer *timer) { return timer->isActive(); });
}

QTimer *NetworkPage::timer(int interval) const
{
    const auto timers = network()->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    for (QTimer *timer : timers) {
        if (timer->interval() == interval)
            return timer;
    }
    return nullptr;
}
