#include "settingsplugin.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);

    SettingsPlugin settings;
    if (!settings.screen()) {
        qCritical("%s", qUtf8Printable(settings.errorString()));
        return 1;
    }

    QQmlEngine engine;
    QQuickWindow window;
    window.resize(1024, 600);

    QQuickItem *root = settings.screen()->init(&engine, window.width(), window.height(), 1000);
    if (!root) // the log says why
        return 1;

    root->setParent(window.contentItem());     // who deletes it
    root->setParentItem(window.contentItem()); // where it is shown

    window.show();
    settings.screen()->open();
    return QGuiApplication::exec();
}
