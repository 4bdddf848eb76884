#include "bench/benchhost.h"

#include "host/glass/sight.h"
#include "plugin/pluginregistry.h"

#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QMouseEvent>
#include <QtQml/QQmlComponent>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

QByteArray fortyTexts()
{
    // Those of the General page at 1024 x 600.
    static constexpr std::array<const char *, 5> fonts = {
        "pixelSize: 24",
        "pixelSize: 21",
        "pixelSize: 19",
        "pixelSize: 19; weight: Font.Medium",
        "pixelSize: 19; weight: Font.Bold",
    };
    static constexpr std::array<const char *, 8> texts = {
        "Brightness",           "Buzzer",   "Network",    "192.168.1.10",
        "Obtain automatically", "Language", "2026-01-02", "Version",
    };
    QByteArray document;
    for (std::size_t column = 0; column < fonts.size(); ++column) {
        for (std::size_t row = 0; row < texts.size(); ++row)
            document += "Text { x: " + QByteArray::number(static_cast<int>(column) * 200) +
                        "; y: " + QByteArray::number(static_cast<int>(row) * 50) + "; font { " +
                        fonts.at(column) + " } text: \"" + texts.at(row) + "\" }\n";
    }
    return document;
}

} // namespace

void BenchHost::prepareEnvironment()
{
    static QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_HASH_SEED", "0");
}

void BenchHost::prepareFont()
{
    const QFont font(QStringLiteral("WenQuanYi Micro Hei"));
    QGuiApplication::setFont(font);
    QFont::insertSubstitution(QStringLiteral("1"), font.family());
    static_cast<void>(QFontMetrics(font).horizontalAdvance(QStringLiteral("Settings")));
}

BenchHost::BenchHost(const QSize &size)
    : m_engine(std::make_unique<QQmlEngine>()), m_window(std::make_unique<QQuickWindow>()), m_size(size)
{
    m_window->resize(size);
}

BenchHost::~BenchHost()
{
    m_floor.reset();
    m_window.reset();
    m_engine.reset();
}

void BenchHost::showFloor(Floor floor)
{
    QByteArray document("import QtQuick 2.15\nItem {\n" + (floor == Floor::Texts ? fortyTexts() : "") +
                        "}\n");
    if (floor != Floor::Quick)
        document.prepend("import QtQuick.Controls 2.15\n");
    QQmlComponent component(m_engine.get());
    component.setData(document, QUrl());
    m_floor.reset(component.create());
    qobject_cast<QQuickItem *>(m_floor.get())->setParentItem(m_window->contentItem());
    untilPainted([this] { m_window->show(); });
}

void BenchHost::loadScreen()
{
    m_library.setFileName(QStringLiteral(PANEL_PLUGIN));
    if (!m_library.load())
        qFatal("%s", qPrintable(m_library.errorString()));
    const auto getInstance =
        reinterpret_cast<VexPlugin::PluginRegistry *(*)()>(m_library.resolve("VexPluginGetInstance"));
    const auto &factories = getInstance()->factories();
    m_screen = std::static_pointer_cast<ISystemSet>(factories.at(typeid(ISystemSet))());
    m_root = m_screen->init(m_engine.get(), m_size.width(), m_size.height(), 1000);
    m_root->setParent(m_window->contentItem());
    m_root->setParentItem(m_window->contentItem());
}

void BenchHost::open()
{
    untilPainted([this] {
        m_screen->open();
        m_window->show();
    });
}

qint64 BenchHost::untilPainted(const std::function<void()> &action)
{
    QEventLoop loop;
    QTimer::singleShot(60000, &loop, [&loop] { loop.exit(1); });
    // The frame in hand does not show what the action does; the one after it does.
    const auto connection =
        QObject::connect(m_window.get(), &QQuickWindow::frameSwapped, &loop, [&loop] { loop.exit(0); });
    QElapsedTimer timer;
    timer.start();
    action();
    const int result = loop.exec();
    const qint64 elapsed = timer.nsecsElapsed();
    QObject::disconnect(connection);
    if (result != 0)
        qFatal("Nothing was painted");
    return elapsed;
}

qint64 BenchHost::tapText(QQuickItem *below, const QString &text)
{
    const QQuickItem *label = Sight::byText(below, text);
    if (!label)
        qFatal("Nothing reads \"%s\"", qPrintable(text));
    const QPointF point = Sight::centerOf(label);
    // At once, not by the event queue: what the click does is what is measured.
    return untilPainted([&] {
        QMouseEvent press(QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_window.get(), &press);
        QMouseEvent release(QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(m_window.get(), &release);
    });
}

QQuickItem *BenchHost::menu() const
{
    return m_root->property("menuBar").value<QQuickItem *>();
}

qint64 BenchHost::privateMemory()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    qint64 sum = 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Private_Dirty:"))
            sum += line.simplified().split(' ').value(1).toLongLong();
    }
    return sum;
}

double BenchHost::median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void BenchHost::print(const QJsonObject &figures)
{
    std::puts(QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}
