#pragma once

#include <QtQuick/QQuickPaintedItem>

/// A dial: a track of three quarters of a circle, filled up to the value.
class Gauge : public QQuickPaintedItem
{
    Q_OBJECT
    /// 0 (empty) to 1 (full); anything else is shown as the nearer end.
    Q_PROPERTY(qreal fraction READ fraction WRITE setFraction NOTIFY fractionChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit Gauge(QQuickItem *parent = nullptr);

    qreal fraction() const { return m_fraction; }
    void setFraction(qreal fraction);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    void paint(QPainter *painter) override;

signals:
    void fractionChanged();
    void colorChanged();

private:
    qreal m_fraction = 0;
    QColor m_color;
};
