#include "cards/wifi/wifilist.h"

#include "cards/wifi/wifirow.h"
#include "panel/secrets.h"
#include "panel/ssid.h"
#include "panel/wifirefusals.h"

#include <QtQuick/private/qquickflickable_p.h>
#include <QtQuick/private/qquickitem_p.h>

#include <algorithm>
#include <cmath>

namespace QSP {

namespace {

// The row's own flag; on a hidden page no item is visible.
bool isShown(const WifiInfo &info)
{
    return QQuickItemPrivate::get(info.item)->explicitVisible;
}

} // namespace

WifiList::WifiList(QQuickItem *container, int rowHeight, const WifiRefusals &refusals, QObject *parent)
    : QObject(parent), m_container(container), m_rowHeight(rowHeight), m_refusals(refusals)
{
    connect(container, &QQuickItem::widthChanged, this, [this] {
        for (const WifiInfo &info : qAsConst(m_infos))
            info.item->setWidth(m_container->width());
    });
    // Where the list lies in the page is known only while the page is shown.
    connect(container, &QQuickItem::visibleChanged, this, &WifiList::updateNear);
    connect(container, &QQuickItem::yChanged, this, &WifiList::updateNear);
}

WifiList::~WifiList()
{
    if (m_container) {
        removeRows();
        return;
    }
    for (WifiInfo &info : m_infos)
        overwrite(info.password);
}

void WifiList::rebuild(const Records &records, int fontPixelSize)
{
    removeRows();
    m_infos.reserve(static_cast<int>(records.size()));
    for (const HMI::SystemSet::SsidInfo &record : records)
        addItem(record, m_infos.size(), fontPixelSize);
    placeRows();
}

void WifiList::clear()
{
    removeRows();
    placeRows();
}

void WifiList::addItem(const HMI::SystemSet::SsidInfo &record, int index, int fontPixelSize)
{
    const HMI::SSID ssid = terminatedSsid(record.ssid);
    auto *row = new WifiRow({getSsidFromScan(ssid), record.signal, fontPixelSize}, m_container);
    row->setSize(QSizeF(m_container->width(), m_rowHeight));
    connect(row, &WifiRow::clicked, this, [this, index] { emit chosen(index); });

    WifiInfo info{row, ssid, QString::fromStdString(record.password), record.needsPassword, record.signal};
    dropIfRefused(info);
    m_infos.append(info);
}

void WifiList::removeRows()
{
    for (WifiInfo &info : m_infos) {
        overwrite(info.password);
        delete info.item;
    }
    m_infos.clear();
    m_shown.clear();
    m_nearBegin = m_nearEnd = 0;
}

void WifiList::placeRows()
{
    m_shown.clear();
    for (const WifiInfo &info : qAsConst(m_infos)) {
        if (!isShown(info))
            continue;
        auto *row = static_cast<WifiRow *>(info.item);
        row->setY(m_shown.size() * m_rowHeight);
        row->setFirst(m_shown.isEmpty());
        m_shown.append(row);
    }
    // Any of them may have contents from where it was before.
    m_nearBegin = 0;
    m_nearEnd = m_shown.size();
    // At once and at the end: a list that shrank to nothing in between would scroll the page.
    // Never 0 either: a column leaves out what has no height, and the rows would
    // lie over the top of the page until the next frame.
    m_container->setHeight(qMax(1, m_shown.size() * m_rowHeight));
    updateNear();
    emit shownChanged();
}

bool WifiList::isNearby(const HMI::SSID &ssid) const
{
    return std::any_of(m_infos.begin(), m_infos.end(),
                       [&ssid](const WifiInfo &info) { return isSameNetwork(info.ssid, ssid); });
}

WifiInfo *WifiList::findWifiBySsid(const HMI::SSID &ssid)
{
    const auto found = std::find_if(m_infos.begin(), m_infos.end(),
                                    [&ssid](const WifiInfo &info) { return info.ssid == ssid; });
    return found == m_infos.end() ? nullptr : &*found;
}

template <class Predicate> void WifiList::show(Predicate wanted)
{
    bool changed = false;
    for (const WifiInfo &info : qAsConst(m_infos)) {
        changed |= wanted(info) != isShown(info);
        info.item->setVisible(wanted(info));
    }
    if (changed)
        placeRows();
}

void WifiList::setJoined(const HMI::SSID &ssid)
{
    show([&ssid](const WifiInfo &info) { return !isSameNetwork(info.ssid, ssid); });
}

void WifiList::showAll()
{
    show([](const WifiInfo &) { return true; });
}

void WifiList::dropRefused()
{
    for (WifiInfo &info : m_infos)
        dropIfRefused(info);
}

void WifiList::dropIfRefused(WifiInfo &info) const
{
    if (!m_refusals.contains(info.ssid, info.password))
        return;
    overwrite(info.password);
    info.password.clear();
    info.needsPassword = 1;
}

void WifiList::watchPage()
{
    if (m_page)
        return;
    QQuickItem *item = m_container->parentItem();
    while (item && !m_page) {
        m_page = qobject_cast<QQuickFlickable *>(item);
        item = item->parentItem();
    }
    if (!m_page)
        return;
    connect(m_page, &QQuickFlickable::contentYChanged, this, &WifiList::updateNear);
    connect(m_page, &QQuickItem::heightChanged, this, &WifiList::updateNear);
}

void WifiList::updateNear()
{
    if (!m_container)
        return;
    watchPage();
    int begin = 0;
    int end = m_shown.size();
    if (m_page) {
        // The page and as much again above and below it: a flick must not show blank rows.
        const qreal top = m_container->mapToItem(m_page, QPointF()).y();
        const qreal height = m_page->height();
        begin = qBound(0, static_cast<int>(std::floor((-height - top) / m_rowHeight)), end);
        end = qBound(begin, static_cast<int>(std::ceil((2.0 * height - top) / m_rowHeight)), end);
    }
    for (int i = m_nearBegin; i < m_nearEnd; ++i) {
        if (i < begin || i >= end)
            m_shown[i]->setNear(false);
    }
    for (int i = begin; i < end; ++i)
        m_shown[i]->setNear(true);
    m_nearBegin = begin;
    m_nearEnd = end;
}

} // namespace QSP
