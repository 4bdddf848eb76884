#include "plugin/implsystemset.h"

#include "shell/approotitem.h"
#include "shell/base/embeddedcomponent.h"
#include "shell/base/globalinfo.h"
#include "shell/base/hostoptions.h"
#include "shell/base/logging.h"
#include "shell/base/palette.h"
#include "shell/base/qmltype.h"
#include "shell/cardinfo.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>
#include <QtQuickTemplates2/private/qquickscrollbar_p.h>

namespace {

// Loads the font that every text begins with while the engine reads the document in its own thread. With
// the first page, whose documents are read ahead as well, this takes about a seventh off the time to the
// first frame on two cores that are free, and costs nothing on one.
void warmUp()
{
    static_cast<void>(QFontMetrics(QGuiApplication::font()).height());
}

} // namespace

QQuickItem *ImplSystemSet::init(QQmlEngine *engine, int width, int height, int rootPopupZ)
{
    if (!engine || width < 1 || height < 1) {
        qWarning("The settings screen needs an engine and a size of at least 1x1, not %dx%d%s", width, height,
                 engine ? "" : " without an engine");
        return nullptr;
    }

    const QSP::HostOptions options = QSP::HostOptions::readFrom(*engine, QSP::cardNames());
    if (options.keepsLanguage)
        QSP::GlobalInfo::keepLanguage();
    QSP::Palette::setTheme(options.theme);
    QSP::GlobalInfo &info = QSP::GlobalInfo::instance();

    QSP::registerQmlType<QSP::AppRootItem>();
    // With all that the toolkit added to its scroll bar until version 2.4. Importing the toolkit's own module
    // for this one type would take a good tenth of the whole start.
    static const int scrollBarType =
        qmlRegisterType<QQuickScrollBar, 4>("QQuickSystemSet.Toolkit", 1, 0, "ScrollBar");
    Q_UNUSED(scrollBarType)
    static QSP::EmbeddedComponent s_component;
    const QUrl document(QStringLiteral("qrc:/setting/main.qml"));
    if (s_component.prefetch(document, engine))
        warmUp();
    // Its size before it is completed, so that the bindings of the document first see the host's.
    auto *root =
        s_component.create<QSP::AppRootItem>(document, nullptr, engine, [width, height](QQuickItem *item) {
            item->setWidth(width);
            item->setHeight(height);
        });
    if (!root)
        return nullptr;

    info.setScreenHeight(height);
    info.setCompactLandscape(options.wantsCompactLandscape);
    info.setRootPopupZ(rootPopupZ);
    info.setScreenWidth(width);
    qCDebug(QSP::logShell, "built for %dx%d", width, height);
    root->init(engine, options);
    return root;
}

void ImplSystemSet::open()
{
    if (QSP::AppRootItem *root = QSP::AppRootItem::instance())
        root->open();
}

void ImplSystemSet::close()
{
    if (QSP::AppRootItem *root = QSP::AppRootItem::instance())
        root->close();
}
