#include "settingsdoor.h"
#include "settingsplugin.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("vistor")); // is offered Exit in place of Reboot

    SettingsPlugin settings;
    if (!settings.screen()) {
        qCritical("%s", qUtf8Printable(settings.errorString()));
        return 1;
    }

    SettingsDoor door(settings.screen());
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("settings"), &door);
    engine.load(QUrl(QStringLiteral("qrc:/application.qml")));
    if (engine.rootObjects().isEmpty())
        return 1; // the log says why

    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    if (!window || !door.build(&engine, window))
        return 1;
    return QGuiApplication::exec();
}
