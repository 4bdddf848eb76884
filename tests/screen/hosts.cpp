#include "tests/screen/hosts.h"

#include "tests/screen/screenfixture.h"

#include <QtQml/QQmlApplicationEngine>
#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickView>

namespace {

/// A window made in C++; the root lies in its content, or in an item that a document made there.
class WindowHost : public Host
{
public:
    WindowHost(const QSize &size, const char *document, const char *ownerName = nullptr)
        : m_engine(std::make_unique<QQmlEngine>()), m_window(std::make_unique<QQuickWindow>())
    {
        m_window->resize(size);
        QQuickItem *place = m_window->contentItem();
        if (document) {
            QQmlComponent component(m_engine.get());
            component.setData(document, QUrl());
            auto *page = qobject_cast<QQuickItem *>(component.create());
            page->setParent(place);
            page->setParentItem(place);
            place = ownerName ? page->property(ownerName).value<QQuickItem *>() : page;
        }
        build(size, place, place);
        show();
    }

    QQmlEngine *engine() const override { return m_engine.get(); }
    QQuickWindow *window() const override { return m_window.get(); }

private:
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

/// A QQuickView, whose root object owns the screen.
class ViewHost : public Host
{
public:
    explicit ViewHost(const QSize &size) : m_view(std::make_unique<QQuickView>())
    {
        QQmlComponent page(m_view->engine());
        page.setData("import QtQuick 2.15\nRectangle {}", QUrl());
        m_view->setResizeMode(QQuickView::SizeRootObjectToView);
        m_view->resize(size);
        m_view->setContent(QUrl(), nullptr, page.create());
        build(size, m_view->rootObject(), m_view->rootObject());
        show();
    }

    QQmlEngine *engine() const override { return m_view->engine(); }
    QQuickWindow *window() const override { return m_view.get(); }

private:
    std::unique_ptr<QQuickView> m_view;
};

/// A QQmlApplicationEngine, whose window owns the screen.
class ApplicationEngineHost : public Host
{
public:
    explicit ApplicationEngineHost(const QSize &size)
    {
        m_engine.loadData("import QtQuick 2.15\nimport QtQuick.Window 2.15\nWindow { visible: true }");
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
        m_window->resize(size);
        build(size, m_window, m_window->contentItem());
        show();
    }

    QQmlEngine *engine() const override { return const_cast<QQmlApplicationEngine *>(&m_engine); }
    QQuickWindow *window() const override { return m_window; }

private:
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
};

constexpr char itemDocument[] = "import QtQuick 2.15\nItem { width: 1024; height: 600 }";
constexpr char loaderDocument[] = R"(
import QtQuick 2.15
Item {
    property alias loader: _loader
    property alias loaded: _loader.item
    Loader {
        id: _loader
        width: 1024
        height: 600
        focus: true
        sourceComponent: Item {}
    }
}
)";

} // namespace

QStringList Host::kinds()
{
    return {"a window",      "an item made by QML",       "a loader",
            "a loaded item", "the root object of a view", "the window of an application engine"};
}

std::unique_ptr<Host> Host::make(const QString &kind, const QSize &size)
{
    switch (kinds().indexOf(kind)) {
    case 0:
        return std::make_unique<WindowHost>(size, nullptr);
    case 1:
        return std::make_unique<WindowHost>(size, itemDocument);
    case 2:
        return std::make_unique<WindowHost>(size, loaderDocument, "loader");
    case 3:
        return std::make_unique<WindowHost>(size, loaderDocument, "loaded");
    case 4:
        return std::make_unique<ViewHost>(size);
    case 5:
        return std::make_unique<ApplicationEngineHost>(size);
    default:
        return nullptr;
    }
}

Host::~Host()
{
    if (const auto closeInstance = reinterpret_cast<void (*)()>(m_library.resolve("VexPluginCloseInstance")))
        closeInstance();
}

void Host::build(const QSize &size, QObject *owner, QQuickItem *place)
{
    m_library.setFileName(QStringLiteral(PANEL_PLUGIN));
    m_screen = screenOf(&m_library);
    m_root = m_screen->init(engine(), size.width(), size.height(), 1000);
    m_root->setParent(owner);
    m_root->setParentItem(place);
}

void Host::show() const
{
    Operator::show(window());
}

void Host::tapText(const QString &text) const
{
    Operator::tap(Operator::ancestorOf(Operator::byText(glass(), text), "QSP::BeepButton"));
    Operator::settle();
}
