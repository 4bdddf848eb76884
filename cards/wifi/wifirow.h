#pragma once

#include <QtCore/QString>
#include <QtQuick/QQuickItem>

namespace QSP {

class BeepButton;

/// One network of the list. The row itself is a bare item; what it shows is
/// made when it comes near the visible part of the page and dropped when it
/// is far from it again, so that a long list costs little.
class WifiRow : public QQuickItem
{
    Q_OBJECT

public:
    struct Look {
        QString name;
        int signal; ///< percent
        int fontPixelSize;
    };

    WifiRow(Look look, QQuickItem *list);

    /// The first row of the list has no line above it.
    void setFirst(bool first);
    /// Makes or drops the contents. A row under the operator's finger keeps them.
    void setNear(bool near);

signals:
    void clicked();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void make();
    void layout();

    Look m_look;
    BeepButton *m_button = nullptr;
    QQuickItem *m_label = nullptr;
    QQuickItem *m_line = nullptr; ///< to the row above
    bool m_isFirst = false;
};

} // namespace QSP
