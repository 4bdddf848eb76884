#pragma once

#include "controls/basecard.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

namespace QSP {

class SecondTimer;
class TimeEditPopup;

/// Date, weekday and time of the panel, shown anew each second; a tap on them opens the editor.
class CardTime : public BaseCard
{
    Q_OBJECT
    Q_PROPERTY(QString currentDateTime READ currentDateTime NOTIFY currentDateTimeChanged)
    Q_PROPERTY(qreal timeTitleRowHeight READ timeTitleRowHeight NOTIFY timeTitleRowHeightChanged)

public:
    explicit CardTime(QQuickItem *parent = nullptr);
    ~CardTime() override;

    /// In the language of the screen, for example "2026/03/09 Mon 14:05:00".
    QString currentDateTime() const;
    /// In pixels; the card's other sizes are fractions of it.
    qreal timeTitleRowHeight() const { return m_titleRowHeight; }

    /// Whether the operator may set the clock: always.
    Q_INVOKABLE bool allowUpdateSystemTime() const { return true; }
    /// Opens the editor at the present moment.
    Q_INVOKABLE void openDialog();

public slots:
    void updateDateTime();

signals:
    void currentDateTimeChanged();
    void timeTitleRowHeightChanged();

protected:
    void componentComplete() override;

private:
    /// After what the timer may have missed: the clock was set, or the panel slept.
    void catchUp();
    void addDialog();
    void setSystemTime(const QDateTime &dateTime);

    static QString textOf(qint64 second, const QLocale &locale);

    SecondTimer *m_refreshTimer;
    /// What is shown: the seconds since 1970 and the language.
    qint64 m_second = -1;
    QLocale m_locale;
    /// The text for them, once somebody has asked.
    mutable QString m_text;
    qreal m_titleRowHeight = 54.0;
    TimeEditPopup *m_dialog = nullptr;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardTime)
