#include "keyboarditem.h"

#include <algorithm>
#include <cmath>
#include <QtGui/QTouchEvent>
#include <QtQuick/QQuickWindow>

#include "keyevents.h"
#include "palette.h"

namespace StandIn {

namespace {

constexpr int MouseContact = -1;      // touch points count from 0
constexpr qreal SlipTolerance = 12.0; // a pressed fingertip rolls
constexpr int RepeatDelayMs = 450;
constexpr int RepeatIntervalMs = 60;

constexpr qreal PanelPadding = 4.0;
constexpr qreal TallestRows = 5.0;
constexpr qreal MinCellHeight = 46.0; // leaves a face of 41
constexpr qreal MaxCellHeight = 64.0;
// On the lowest panels there are, so that the field that is edited and what stands above it can be seen.
constexpr qreal LowestCellHeight = 36.0;
constexpr qreal LeftOfLowScreen = 84.0;
constexpr qreal CellHeightOfScreenHeight = 0.09;
constexpr qreal CellHeightOfScreenWidth = 0.12; // no taller than a key of ten a row looks good
constexpr qreal FontOfUnit = 0.46;

qreal distance(const QRectF &rect, const QPointF &point)
{
    const qreal dx = std::max({rect.left() - point.x(), 0.0, point.x() - rect.right()});
    const qreal dy = std::max({rect.top() - point.y(), 0.0, point.y() - rect.bottom()});
    return std::hypot(dx, dy);
}

/// Whether the key acts when the finger is lifted, not when it is put down.
bool endsEntry(KeyRole role)
{
    return role == KeyRole::Enter || role == KeyRole::Hide;
}

} // namespace

KeyboardItem::KeyboardItem(QQuickItem *parent) : QQuickRectangle(parent), m_edge(new QQuickRectangle(this))
{
    setColor(Palette::panel());
    m_edge->setColor(Palette::panelEdge());
    m_edge->setHeight(1);
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
    showPage(false);
}

qreal KeyboardItem::heightFor(const QSizeF &size)
{
    const qreal wanted = std::floor(
        std::min(size.height() * CellHeightOfScreenHeight, size.width() * CellHeightOfScreenWidth));
    const qreal possible = std::floor((size.height() - LeftOfLowScreen - 2 * PanelPadding) / TallestRows);
    const qreal least = qBound(LowestCellHeight, possible, MinCellHeight);
    const qreal cell = qBound(least, wanted, MaxCellHeight);
    return std::min(TallestRows * cell + 2 * PanelPadding, size.height());
}

void KeyboardItem::setLayoutType(VkbLayoutType type)
{
    if (type == m_type || !isKnownLayout(type))
        return;
    m_type = type;
    reset();
}

void KeyboardItem::reset()
{
    setShift(ShiftState::Off);
    showPage(false);
}

void KeyboardItem::showPage(bool symbols)
{
    dropContacts();
    const KeyPage *page = &keyPage(m_type, symbols);
    if (page == m_page)
        return;
    m_page = page;
    while (m_keys.size() < page->keys.size())
        m_keys.push_back(new KeyItem(this));
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        const bool used = i < page->keys.size();
        m_keys[i]->setVisible(used);
        m_keys[i]->setSpec(used ? page->keys[i] : KeySpec());
    }
    arrange();
}

void KeyboardItem::arrange()
{
    m_edge->setWidth(width());
    const qreal room = std::max(0.0, width() - 2 * PanelPadding);
    const qreal unitHeight = std::max(0.0, height() - 2 * PanelPadding) / m_page->rows;
    const qreal unitWidth = std::min(room / m_page->columns, unitHeight * m_page->maxAspect);
    const qreal left = (width() - unitWidth * m_page->columns) / 2;
    const int fontPixelSize = std::max(1, qRound(std::min(unitHeight, unitWidth) * FontOfUnit));

    for (std::size_t i = 0; i < m_page->keys.size(); ++i) {
        const QRectF &cell = m_page->keys[i].cell;
        // Both edges are rounded on their own, so that neighbours meet without a gap.
        const QPoint topLeft(qRound(left + cell.left() * unitWidth),
                             qRound(PanelPadding + cell.top() * unitHeight));
        const QPoint bottomRight(qRound(left + cell.right() * unitWidth),
                                 qRound(PanelPadding + cell.bottom() * unitHeight));
        m_keys[i]->setPosition(topLeft);
        m_keys[i]->setSize(QSizeF(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y()));
        m_keys[i]->setFontPixelSize(fontPixelSize);
    }
}

KeyItem *KeyboardItem::keyAt(const QPointF &position) const
{
    // A finger beside a short row means its nearest key. Far away it means none.
    const qreal reach = m_keys.front()->width() * 0.6;
    KeyItem *nearest = nullptr;
    qreal nearestDistance = reach;
    for (std::size_t i = 0; i < m_page->keys.size(); ++i) {
        const qreal d = distance(QRectF(m_keys[i]->position(), m_keys[i]->size()), position);
        if (d < nearestDistance) {
            nearestDistance = d;
            nearest = m_keys[i];
        }
    }
    return nearest;
}

std::vector<KeyboardItem::Contact>::iterator KeyboardItem::findContact(int id)
{
    return std::find_if(m_contacts.begin(), m_contacts.end(), [id](const Contact &c) { return c.id == id; });
}

void KeyboardItem::contactPressed(int id, const QPointF &position)
{
    stopRepeat(); // as on every keyboard, the newest key counts
    const auto stale = findContact(id);
    if (stale != m_contacts.end()) {
        KeyItem *key = stale->key;
        m_contacts.erase(stale);
        updatePressed(key);
    }
    KeyItem *key = keyAt(position);
    if (!key)
        return;
    m_contacts.push_back({id, key, true});
    updatePressed(key);
    // A copy: what the key does may change the page.
    const KeySpec spec = key->spec();
    if (spec.role == KeyRole::Backspace)
        startRepeat(id);
    if (!endsEntry(spec.role))
        act(spec);
}

void KeyboardItem::contactMoved(int id, const QPointF &position)
{
    const auto contact = findContact(id);
    if (contact == m_contacts.end())
        return;
    const QRectF cell(contact->key->position(), contact->key->size());
    const bool inside = distance(cell, position) <= SlipTolerance;
    if (contact->inside == inside)
        return;
    contact->inside = inside;
    updatePressed(contact->key);
    if (!inside && m_repeatContact == id)
        stopRepeat();
}

void KeyboardItem::contactReleased(int id, const QPointF &position)
{
    contactMoved(id, position);
    const auto contact = findContact(id);
    if (contact == m_contacts.end())
        return;
    const Contact ended = *contact;
    const KeySpec spec = ended.key->spec();
    m_contacts.erase(contact);
    updatePressed(ended.key);
    if (m_repeatContact == id)
        stopRepeat();
    if (spec.role == KeyRole::Shift)
        releaseShift();
    else if (ended.inside && endsEntry(spec.role))
        act(spec);
}

void KeyboardItem::dropContacts()
{
    stopRepeat();
    m_contacts.clear();
    for (KeyItem *key : m_keys)
        key->setPressed(false);
}

void KeyboardItem::updatePressed(KeyItem *key)
{
    key->setPressed(std::any_of(m_contacts.begin(), m_contacts.end(),
                                [key](const Contact &c) { return c.key == key && c.inside; }));
}

// Sending a key comes last everywhere: it may hide, change or delete the keyboard.
void KeyboardItem::act(const KeySpec &spec)
{
    switch (spec.role) {
    case KeyRole::Character:
        typeCharacter(spec.character);
        break;
    case KeyRole::Backspace:
        sendKey(window(), Qt::Key_Backspace, QStringLiteral("\b"), false);
        break;
    case KeyRole::Clear:
        sendKey(window(), Qt::Key_Clear, QString(), false);
        break;
    case KeyRole::Enter:
        sendKey(window(), Qt::Key_Return, QStringLiteral("\r"), false);
        break;
    case KeyRole::Hide:
        sendKey(window(), HideKeyCode, QString(), false);
        break;
    case KeyRole::Shift:
        pressShift();
        break;
    case KeyRole::Symbols:
    case KeyRole::Letters:
        setShift(ShiftState::Off);
        showPage(spec.role == KeyRole::Symbols);
        break;
    }
}

void KeyboardItem::typeCharacter(QChar character)
{
    const bool letter = character.isLetter();
    const QChar typed = letter && m_shift != ShiftState::Off ? character.toUpper() : character;
    if (letter) {
        if (isShiftHeld())
            m_shiftUsedWhileHeld = true;
        else if (m_shift == ShiftState::Once)
            setShift(ShiftState::Off);
    }
    sendCharacter(window(), typed);
}

void KeyboardItem::pressShift()
{
    m_shiftUsedWhileHeld = false;
    switch (m_shift) {
    case ShiftState::Off:
        setShift(ShiftState::Once);
        break;
    case ShiftState::Once:
        setShift(ShiftState::Locked);
        break;
    case ShiftState::Locked:
        setShift(ShiftState::Off);
        break;
    }
}

void KeyboardItem::releaseShift()
{
    // Held down while letters were typed, it was meant for those only.
    if (m_shiftUsedWhileHeld && m_shift == ShiftState::Once && !isShiftHeld())
        setShift(ShiftState::Off);
}

void KeyboardItem::setShift(ShiftState shift)
{
    m_shift = shift;
    for (KeyItem *key : m_keys)
        key->setShift(shift);
}

bool KeyboardItem::isShiftHeld() const
{
    return std::any_of(m_contacts.begin(), m_contacts.end(),
                       [](const Contact &c) { return c.key->spec().role == KeyRole::Shift; });
}

void KeyboardItem::startRepeat(int id)
{
    m_repeatContact = id;
    m_repeatTarget = window() ? window()->activeFocusItem() : nullptr;
    if (m_repeatTarget)
        m_repeatTimer.start(RepeatDelayMs, this);
}

void KeyboardItem::stopRepeat()
{
    m_repeatTimer.stop();
    m_repeatTarget.clear();
}

void KeyboardItem::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_repeatTimer.timerId()) {
        QQuickRectangle::timerEvent(event);
        return;
    }
    // A field that gets the focus in the meantime must not be emptied too.
    if (!window() || !window()->isVisible() || !m_repeatTarget ||
        window()->activeFocusItem() != m_repeatTarget) {
        stopRepeat();
        return;
    }
    m_repeatTimer.start(RepeatIntervalMs, this);
    sendKey(window(), Qt::Key_Backspace, QStringLiteral("\b"), true);
}

void KeyboardItem::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickRectangle::geometryChanged(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        arrange();
}

void KeyboardItem::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    contactPressed(MouseContact, event->localPos());
}

void KeyboardItem::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    contactMoved(MouseContact, event->localPos());
}

void KeyboardItem::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    contactReleased(MouseContact, event->localPos());
}

void KeyboardItem::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept(); // comes beside the second press, which has typed already
}

void KeyboardItem::mouseUngrabEvent()
{
    dropContacts();
}

void KeyboardItem::touchEvent(QTouchEvent *event)
{
    event->accept();
    if (event->type() == QEvent::TouchCancel) {
        dropContacts();
        return;
    }
    const QPointer<KeyboardItem> alive(this);
    const QList<QTouchEvent::TouchPoint> points = event->touchPoints();
    for (const QTouchEvent::TouchPoint &point : points) {
        switch (point.state()) {
        case Qt::TouchPointPressed:
            contactPressed(point.id(), point.pos());
            break;
        case Qt::TouchPointMoved:
            contactMoved(point.id(), point.pos());
            break;
        case Qt::TouchPointReleased:
            contactReleased(point.id(), point.pos());
            break;
        case Qt::TouchPointStationary:
            break;
        }
        if (!alive)
            return;
    }
}

void KeyboardItem::touchUngrabEvent()
{
    dropContacts();
}

} // namespace StandIn
