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

    /// Shows the row with @p name and the strength that the service tells.
    void show(const QString &name, int fontPixelSize);
    /// Hides the row and clears its name.
    void hide();
    /// Reads the strength again; one below 1 is no reading and leaves the icon as it was.
    void updateSignalStrength();

private:
    QQuickItem *m_container;
    QQuickImage *m_signal;
    QQuickText *m_name;
};

} // namespace QSP
