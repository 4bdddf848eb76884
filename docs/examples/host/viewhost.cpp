#include "settingsplugin.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);

    SettingsPlugin settings;
    if (!settings.screen()) {
        qCritical("%s", qUtf8Printable(settings.errorString()));
        return 1;
    }

    QQuickView view(QUrl(QStringLiteral("qrc:/page.qml")));
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(480, 800);

    QQuickItem *root = settings.screen()->init(view.engine(), view.width(), view.height(), 1000);
    if (!root)
        return 1;
    root->setParent(view.rootObject()); // the view deletes its root object before its engine
    root->setParentItem(view.rootObject());

    view.show();
    settings.screen()->open();
    return QGuiApplication::exec();
}
