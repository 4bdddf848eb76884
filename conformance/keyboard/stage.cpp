#include "conformance/keyboard/stage.h"

#include <qpa/qwindowsysteminterface.h>
#include <QtCore/QElapsedTimer>
#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquickwindow_p.h>

namespace Conformance {

namespace {

constexpr int HeightOfFields = 40;
// Far enough apart that no two touches are taken for one double click.
constexpr ulong TimeBetweenEvents = 2000;

ulong now()
{
    static ulong time = 0;
    return time += TimeBetweenEvents;
}

QTouchDevice *touchScreen()
{
    static QTouchDevice *device = [] {
        auto *made = new QTouchDevice;
        made->setType(QTouchDevice::TouchScreen);
        made->setCapabilities(QTouchDevice::Position);
        QWindowSystemInterface::registerTouchDevice(made);
        return made;
    }();
    return device;
}

} // namespace

Stage::Stage(const KeyboardLibrary &library, const QSize &size)
    : m_window(std::make_unique<QQuickWindow>())
    , m_field(new RecordingField(m_window->contentItem()))
    , m_other(new RecordingField(m_window->contentItem()))
    , m_keyboard(library.keyboardOf(m_window.get()))
{
    m_window->resize(size);
    m_field->setSize(QSizeF(size));
    m_other->setSize(QSizeF(size.width(), HeightOfFields));
    m_window->show();
    m_window->requestActivate();
    waitFor([this] { return m_window->isActive() && m_window->isExposed(); }, PatienceMs);
    m_field->forceActiveFocus();
}

Stage::~Stage()
{
    if (m_window && m_keyboard && m_keyboard->isVisible())
        m_keyboard->show(false);
    dropWindow();
}

void Stage::dropWindow()
{
    m_window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool Stage::prepare()
{
    if (!m_isPrepared)
        m_keyboard->initialize(m_window.get(), PopupZ);
    m_isPrepared = true;
    return m_keyboard->popup() && m_keyboard->item();
}

bool Stage::show(VkbLayoutType type)
{
    if (!prepare())
        return false;
    popup()->setModal(false);
    m_keyboard->show(true);
    m_keyboard->setLayoutType(type);
    const bool isThere = waitFor([this] { return m_keyboard->isVisible() && !area().isEmpty(); }, HidingMs);
    // Nobody touches what is not painted yet, and until then keys need not be where they will be.
    awaitFrame();
    m_field->forceActiveFocus();
    return isThere;
}

void Stage::awaitFrame()
{
    bool isPainted = false;
    const QMetaObject::Connection painting = QObject::connect(
        m_window.get(), &QQuickWindow::frameSwapped, m_window.get(), [&isPainted] { isPainted = true; });
    m_window->update();
    waitFor([&isPainted] { return isPainted; }, PatienceMs);
    QObject::disconnect(painting);
}

bool Stage::hide()
{
    m_keyboard->show(false);
    return waitFor([this] { return !m_keyboard->isVisible(); }, PatienceMs);
}

void Stage::press(const QPointF &point)
{
    touch(QEvent::TouchBegin, Qt::TouchPointPressed, point);
}

void Stage::release(const QPointF &point)
{
    touch(QEvent::TouchEnd, Qt::TouchPointReleased, point);
}

void Stage::tap(const QPointF &point)
{
    press(point);
    release(point);
    // Keys may come from the event loop.
    QCoreApplication::processEvents();
    // A page that was turned is laid out before the next touch: between the two of a person there are frames.
    QQuickWindowPrivate::get(m_window.get())->polishItems();
}

void Stage::click(const QPointF &point)
{
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool isDown = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, point, point, m_window->mapToGlobal(point.toPoint()), Qt::LeftButton,
                          isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        event.setTimestamp(now());
        QCoreApplication::sendEvent(m_window.get(), &event);
    }
    QCoreApplication::processEvents();
}

void Stage::touch(QEvent::Type type, Qt::TouchPointState state, const QPointF &point)
{
    QTouchEvent::TouchPoint contact(0);
    contact.setState(state);
    contact.setPos(point);
    contact.setScenePos(point);
    contact.setScreenPos(m_window->mapToGlobal(point.toPoint()));
    QTouchEvent event(type, touchScreen(), Qt::NoModifier, state, {contact});
    event.setWindow(m_window.get());
    event.setTimestamp(now());
    QCoreApplication::sendEvent(m_window.get(), &event);
}

QRectF Stage::area() const
{
    const QQuickItem *item = m_keyboard->item();
    return item ? item->mapRectToScene(QRectF(QPointF(), item->size())) : QRectF();
}

bool Stage::waitFor(const std::function<bool()> &condition, int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.hasExpired(milliseconds))
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void Stage::pause(int milliseconds)
{
    waitFor([] { return false; }, milliseconds);
}

} // namespace Conformance
