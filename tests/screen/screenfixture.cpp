#include "tests/screen/screenfixture.h"

#include "plugin/pluginregistry.h"

std::shared_ptr<ISystemSet> screenOf(QLibrary *library)
{
    if (!library->load()) {
        QTest::qFail(qPrintable(library->errorString()), __FILE__, __LINE__);
        return nullptr;
    }
    const auto getInstance =
        reinterpret_cast<VexPlugin::PluginRegistry *(*)()>(library->resolve("VexPluginGetInstance"));
    const auto &factories = getInstance()->factories();
    return std::static_pointer_cast<ISystemSet>(factories.at(typeid(ISystemSet))());
}

QVector<QPointer<QTimer>> timersBelow(const QObject *root)
{
    QVector<QPointer<QTimer>> timers;
    const auto found = root->findChildren<QTimer *>();
    for (QTimer *timer : found)
        timers << timer;
    return timers;
}

struct ScreenFixture::Plugin {
    explicit Plugin(const QString &file) : library(file), screen(screenOf(&library)) {}
    ~Plugin()
    {
        if (const auto closeInstance =
                reinterpret_cast<void (*)()>(library.resolve("VexPluginCloseInstance")))
            closeInstance();
    }
    Q_DISABLE_COPY(Plugin)

    static std::shared_ptr<Plugin> of(const QString &file)
    {
        static std::weak_ptr<Plugin> loaded;
        std::shared_ptr<Plugin> plugin = loaded.lock();
        if (!plugin)
            loaded = plugin = std::make_shared<Plugin>(file);
        return plugin;
    }

    QLibrary library;
    std::shared_ptr<ISystemSet> screen;
};

ScreenFixture::ScreenFixture(const QString &plugin, const QSize &size, int rootPopupZ,
                             const QVariantMap &options)
    : m_plugin(Plugin::of(plugin)), m_size(size), m_rootPopupZ(rootPopupZ)
{
    m_screen = m_plugin->screen;
    if (!m_screen)
        return;

    m_engine = std::make_unique<QQmlEngine>();
    for (auto option = options.begin(); option != options.end(); ++option)
        m_engine->setProperty(qPrintable(option.key()), option.value());
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(size);
    build();
    Operator::show(m_window.get());
}

void ScreenFixture::build()
{
    m_root = m_screen->init(m_engine.get(), m_size.width(), m_size.height(), m_rootPopupZ);
    if (m_root) {
        m_root->setParent(m_window->contentItem());
        m_root->setParentItem(m_window->contentItem());
    }
}

void ScreenFixture::rebuild()
{
    delete m_root;
    build();
}

ScreenFixture::~ScreenFixture()
{
    // As a host goes: first the scene, then the engine.
    m_window.reset();
    m_engine.reset();
}

void ScreenFixture::open()
{
    m_screen->open();
    Operator::settle();
}

void ScreenFixture::close()
{
    m_screen->close();
    Operator::settle();
}

QString ScreenFixture::title() const
{
    const auto *title = m_root->property("titleText").value<QQuickItem *>();
    return title ? title->property("text").toString() : QString();
}

void ScreenFixture::tapMenu(const QString &text)
{
    auto *menu = m_root->property("menuBar").value<QQuickItem *>();
    Operator::tap(Operator::ancestorOf(Operator::byText(menu, text), "QSP::BeepButton"));
    Operator::settle();
}

void ScreenFixture::tapText(const QString &text)
{
    QQuickItem *label = Operator::byText(glass(), text);
    Operator::tap(Operator::ancestorOf(label, "QSP::BeepButton"));
    Operator::settle();
}
