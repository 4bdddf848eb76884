#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QTimer>
#include <QtCore/QTimerEvent>
#include <QtCore/QVector>

/// Sees which timers that ring once ring, whosever they are.
class OneShots : public QObject
{
public:
    OneShots() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *timer = event->type() == QEvent::Timer ? qobject_cast<QTimer *>(watched) : nullptr;
        if (timer && timer->isSingleShot())
            m_types[timer->interval()] << timer->timerType();
        return QObject::eventFilter(watched, event);
    }
    /// How exact those of that interval were.
    QVector<Qt::TimerType> typesOf(int interval) const { return m_types.value(interval); }

private:
    QHash<int, QVector<Qt::TimerType>> m_types;
};
