#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

class QQuickImage;
class QQuickItem;
class QQuickText;

namespace QSP {

/// The joined network: signal, name and a green tick, in the container that the document offers.
class WifiCurrentRow : public QObject
{
    Q_OBJECT

public:
    WifiCurrentRow(QQuickItem *container, int rowHeight, QObject *parent);

    /// Shows the row; a @p strength below 1 is no reading and leaves the icon as it was.
    void show(const QString &name, int strength, int fontPixelSize);
    /// Hides the row and clears its name.
    void hide();

private:
    QQuickItem *m_container;
    QQuickImage *m_signal;
    QQuickText *m_name;
};

} // namespace QSP
