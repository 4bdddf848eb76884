#include "host/operatorpanel.h"

#include "host/gauge.h"

#include <QtGui/QKeyEvent>

namespace {

// Popups of the settings screen lie above everything that this host shows.
constexpr int settingsPopupZ = 1000;

} // namespace

OperatorPanel::OperatorPanel(const QSize &size) : m_view(&m_engine, nullptr)
{
    qmlRegisterType<Gauge>("PanelHost", 1, 0, "Gauge");
    m_view.setTitle(tr("Operator panel"));
    m_view.setResizeMode(QQuickView::SizeRootObjectToView);
    // A panel has one size, and the settings screen is built for it.
    m_view.setMinimumSize(size);
    m_view.setMaximumSize(size);
    m_view.resize(size);
    m_view.setSource(QUrl(QStringLiteral("qrc:/host/qml/OperatorPage.qml")));
    connect(m_view.rootObject(), SIGNAL(settingsRequested()), this, SLOT(openSettings()));
    m_view.installEventFilter(this);
}

OperatorPanel::~OperatorPanel()
{
    // Before the page that comes back when the screen is hidden.
    delete m_settingsRoot;
}

bool OperatorPanel::addSettings(std::shared_ptr<ISystemSet> settings)
{
    const QSize size = m_view.size();
    m_settingsRoot = settings->init(&m_engine, size.width(), size.height(), settingsPopupZ);
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

void OperatorPanel::showRightPage()
{
    // Covered by the settings, the page would only cost time.
    m_view.rootObject()->setVisible(!m_settingsRoot || !m_settingsRoot->isVisible());
}

bool OperatorPanel::eventFilter(QObject *watched, QEvent *event)
{
    // Esc stands for the key beside the glass that many panels have.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        closeSettings();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
