#pragma once

#include "hmi/systemset.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtQuick/QQuickItem>

class QQuickFlickable;

namespace QSP {

class WifiRefusals;
class WifiRow;

/// One listed network.
struct WifiInfo {
    QQuickItem *item;     ///< its row
    HMI::SSID ssid;       ///< as the service gave it, but for a NUL at the end
    QString password;     ///< kept by the panel, or typed by the operator since
    quint8 needsPassword; ///< 0: the stored password, or none, will do
    quint8 signal;        ///< percent
};

/// The networks nearby, in the order in which the service reported them, as rows in a bare item.
///
/// Rows are placed here and not by a positioner, whose cost grows with the
/// square of the list when rows come one by one. Copy what you need of a
/// WifiInfo before anything that may rebuild the list.
class WifiList : public QObject
{
    Q_OBJECT

public:
    using Records = std::vector<HMI::SystemSet::SsidInfo>;

    /// @p container gets the rows and its height from the list. @p refusals are the panel's.
    WifiList(QQuickItem *container, int rowHeight, const WifiRefusals &refusals, QObject *parent);
    ~WifiList() override;

    /// Replaces all rows.
    void rebuild(const Records &records, int fontPixelSize);
    void clear();

    const QVector<WifiInfo> &infos() const { return m_infos; }
    /// Whether no row can be seen, be it that the joined network is the only one.
    bool isBlank() const { return m_shown.isEmpty(); }
    /// Whether the list has a network of that name, up to its end.
    bool isNearby(const HMI::SSID &ssid) const;
    /// The first network of that name, comparing all bytes; null when there is none.
    WifiInfo *findWifiBySsid(const HMI::SSID &ssid);

    /// Hides the row of the joined network, which is shown elsewhere, and shows all others.
    void setJoined(const HMI::SSID &ssid);
    /// Shows all rows that setJoined() hid.
    void showAll();

    /// Takes the passwords that were refused since out of the list, so that new ones are asked for.
    void dropRefused();

signals:
    /// A row was tapped.
    void chosen(int index);
    /// Other rows are shown.
    void shownChanged();

private:
    void addItem(const HMI::SystemSet::SsidInfo &record, int index, int fontPixelSize);
    void dropIfRefused(WifiInfo &info) const;
    void removeRows();
    template <class Predicate> void show(Predicate wanted);
    void placeRows();
    void watchPage();
    void updateNear();

    QPointer<QQuickItem> m_container;
    QPointer<QQuickFlickable> m_page;
    int m_rowHeight;
    QVector<WifiInfo> m_infos;
    QVector<WifiRow *> m_shown; ///< visible rows from top to bottom
    const WifiRefusals &m_refusals;
    int m_nearBegin = 0;
    int m_nearEnd = 0;
};

} // namespace QSP
