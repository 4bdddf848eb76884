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
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale = GlobalInfo::instance().locale();
    const QString text = QStringLiteral("%1 %2 %3")
                             .arg(locale.toString(now.date(), QStringLiteral("yyyy/MM/dd")),
                                  locale.toString(now.date(), QStringLiteral("ddd")),
                                  locale.toString(now.time(), QStringLiteral("hh:mm:ss")));
    if (text == m_currentDateTime)
        return;
    m_currentDateTime = text;
    emit currentDateTimeChanged();
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
    auto &service = systemSet();
    const bool isSet = service.setSystemTime(static_cast<long>(dateTime.toSecsSinceEpoch()));
    qCDebug(logDevice, "clock: %s %s", qPrintable(dateTime.toString(Qt::ISODate)), isSet ? "set" : "refused");
    if (!isSet)
        return;
    service.syncHwclock();
    catchUp();
}

} // namespace QSP
