#include "cards/general/cardtime.h"

#include "cards/general/secondtimer.h"
#include "controls/timeeditpopup.h"
#include "controls/titlerow.h"
#include "shell/approotitem.h"
#include "shell/base/documenttext.h"
#include "shell/base/globalinfo.h"
#include "shell/base/logging.h"
#include "shell/base/service.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>

namespace QSP {

CardTime::CardTime(QQuickItem *parent)
    : BaseCard(parent), m_refreshTimer(new SecondTimer(this)), m_titleRowHeight(exactTitleRowHeight())
{
    connect(m_refreshTimer, &SecondTimer::timeout, this, &CardTime::updateDateTime);
    m_refreshTimer->start();
    m_refreshTimer->startOnTheSecond();
    connect(&GlobalInfo::instance(), &GlobalInfo::localeChanged, this, &CardTime::updateDateTime);
    updateDateTime();
}

CardTime::~CardTime()
{
    m_refreshTimer->stop();
}

void CardTime::componentComplete()
{
    BaseCard::componentComplete();
    setDocumentText(this, "titleText", [] { return QCoreApplication::translate("CardTime", "Time"); });
    setDocumentText(this, "dateLabel", [] { return QCoreApplication::translate("CardTime", "Date & Time"); });
    if (const AppRootItem *root = rootOf(this))
        connect(root, &AppRootItem::opened, this, &CardTime::catchUp);
}

void CardTime::updateDateTime()
{
    const qint64 second = QDateTime::currentSecsSinceEpoch();
    const QLocale locale = GlobalInfo::instance().locale();
    // Each second reads otherwise than the one before; within it only the language can make another text.
    if (second == m_second && (locale == m_locale || currentDateTime() == textOf(second, locale)))
        return;
    m_second = second;
    m_locale = locale;
    m_text.clear();
    emit currentDateTimeChanged();
}

QString CardTime::currentDateTime() const
{
    // Not at each tick: behind a closed screen nobody reads it.
    if (m_text.isEmpty())
        m_text = textOf(m_second, m_locale);
    return m_text;
}

QString CardTime::textOf(qint64 second, const QLocale &locale)
{
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(second);
    return QStringLiteral("%1 %2 %3")
        .arg(locale.toString(moment.date(), QStringLiteral("yyyy/MM/dd")),
             locale.toString(moment.date(), QStringLiteral("ddd")),
             locale.toString(moment.time(), QStringLiteral("hh:mm:ss")));
}

void CardTime::catchUp()
{
    m_refreshTimer->startOnTheSecond();
    updateDateTime();
}

void CardTime::openDialog()
{
    if (!m_dialog)
        addDialog();
    m_dialog->setCurrentDateTime(QDateTime::currentDateTime());
    m_dialog->open();
}

void CardTime::addDialog()
{
    m_dialog = new TimeEditPopup(this);
    if (AppRootItem *root = rootOf(this)) {
        m_dialog->setParentItem(root);
        m_dialog->setX((root->width() - m_dialog->width()) * 0.5);
        m_dialog->setY((root->height() - m_dialog->height()) * 0.5);
    }
    connect(m_dialog, &TimeEditPopup::dateTimeConfirmed, this, &CardTime::setSystemTime);
}

void CardTime::setSystemTime(const QDateTime &dateTime)
{
    const bool isSet =
        callService<&HMI::SystemSet::setSystemTime>(static_cast<long>(dateTime.toSecsSinceEpoch()));
    qCDebug(logDevice, "clock: %s %s", qPrintable(dateTime.toString(Qt::ISODate)), isSet ? "set" : "refused");
    if (!isSet)
        return;
    callService<&HMI::SystemSet::syncHwclock>();
    catchUp();
}

} // namespace QSP
