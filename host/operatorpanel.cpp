#include "host/operatorpanel.h"

#include "host/framekey.h"
#include "host/gauge.h"

#include <QtGui/QKeyEvent>
#include <QtQml/QQmlComponent>

namespace {

// Popups of the settings screen lie above everything that this host shows.
constexpr int settingsPopupZ = 1000;
constexpr int frameWidth = 64;
// Above the toolkit's layer of popups, which shades all of the window.
constexpr int frameZ = 2000000;

} // namespace

OperatorPanel::OperatorPanel(const QSize &glass, Frame frame) : m_glass(glass), m_view(&m_engine, nullptr)
{
    qmlRegisterType<Gauge>("PanelHost", 1, 0, "Gauge");
    m_view.setTitle(tr("Operator panel"));
    m_view.setResizeMode(QQuickView::SizeViewToRootObject);
    m_view.setInitialProperties({{"width", glass.width()}, {"height", glass.height()}});
    m_view.setSource(QUrl(QStringLiteral("qrc:/host/qml/OperatorPage.qml")));
    // A panel has one size, and the settings screen is built for it.
    const QSize window = frame == Frame::WithKey ? glass + QSize(frameWidth, 0) : glass;
    m_view.setMinimumSize(window);
    m_view.setMaximumSize(window);
    m_view.resize(window);
    connect(m_view.rootObject(), SIGNAL(settingsRequested()), this, SLOT(openSettings()));
    m_view.installEventFilter(this);
    if (frame == Frame::WithKey)
        addFrame();
}

OperatorPanel::~OperatorPanel()
{
    // Before the page that comes back when the screen is hidden.
    delete m_settingsRoot;
}

void OperatorPanel::addFrame()
{
    // All that is shown, dialogs and keyboard too, is laid out for the content item: it is the glass.
    connect(m_view.contentItem(), &QQuickItem::widthChanged, this, &OperatorPanel::keepGlassSize);
    connect(m_view.contentItem(), &QQuickItem::heightChanged, this, &OperatorPanel::keepGlassSize);
    keepGlassSize();

    QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/host/qml/PanelFrame.qml")));
    auto *frame = qobject_cast<QQuickItem *>(component.create());
    if (!frame) {
        qWarning("%s", qUtf8Printable(component.errorString()));
        return;
    }
    frame->setParent(m_view.contentItem());
    frame->setParentItem(m_view.contentItem());
    frame->setPosition(QPointF(m_glass.width(), 0));
    frame->setSize(QSizeF(frameWidth, m_glass.height()));
    frame->setZ(frameZ);
    m_key = std::make_unique<FrameKey>(&m_view, frame);
    connect(m_key.get(), &FrameKey::clicked, this, &OperatorPanel::toggleSettings);
}

void OperatorPanel::keepGlassSize()
{
    m_view.contentItem()->setSize(m_glass);
}

bool OperatorPanel::addSettings(std::shared_ptr<ISystemSet> settings)
{
    m_settingsRoot = settings->init(&m_engine, m_glass.width(), m_glass.height(), settingsPopupZ);
    if (!m_settingsRoot)
        return false;
    m_settings = std::move(settings);
    m_settingsRoot->setParent(m_view.contentItem());
    m_settingsRoot->setParentItem(m_view.contentItem());
    // The screen also hides itself: the operator's page has to come back then.
    connect(m_settingsRoot, &QQuickItem::visibleChanged, this, &OperatorPanel::showRightPage);
    showRightPage();
    return true;
}

void OperatorPanel::openSettings()
{
    if (m_settings)
        m_settings->open();
}

void OperatorPanel::closeSettings()
{
    if (m_settings)
        m_settings->close();
}

void OperatorPanel::toggleSettings()
{
    if (m_settingsRoot && m_settingsRoot->isVisible())
        closeSettings();
    else
        openSettings();
}

void OperatorPanel::showRightPage()
{
    // Covered by the settings, the page would only cost time.
    m_view.rootObject()->setVisible(!m_settingsRoot || !m_settingsRoot->isVisible());
}

bool OperatorPanel::eventFilter(QObject *watched, QEvent *event)
{
    // For whoever sits at a keyboard.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        closeSettings();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
