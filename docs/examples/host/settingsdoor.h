#pragma once

#include <hmi/systemset.h>
#include <isystemset.h>
#include <meyersingleton.h>

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

/// The way from the pages of the panel into the settings screen and back.
class SettingsDoor : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged)

public:
    explicit SettingsDoor(ISystemSet *screen) : m_screen(screen) {}

    /// Builds the screen in @p window, still hidden. False when it cannot be built.
    bool build(QQmlEngine *engine, QQuickWindow *window)
    {
        // Before the screen is built, which reads them.
        engine->setProperty("panelLanguages", QStringList{"en", "zh_CN"});
        engine->setProperty("panelHiddenCards", QStringList{"buzzer", "wifi"});
        engine->setProperty("panelTheme", QVariantMap{{"accent", "#007A5A"}, {"background", "#D8E4DE"}});

        // Building the screen records English in the service. A panel that keeps its language says it
        // again afterwards: open() follows the service.
        HMI::SystemSet &service = MeyerSingleton<HMI::SystemSet>::instance();
        const HMI::SystemSet::Language language = service.getLanguage();
        QQuickItem *root = m_screen->init(engine, window->width(), window->height(), 1000);
        if (!root)
            return false;
        service.setLanguage(language);

        root->setParent(window->contentItem());
        root->setParentItem(window->contentItem());
        connect(root, SIGNAL(closed()), this, SLOT(endVisit()));
        return true;
    }

    bool isOpen() const { return m_isOpen; }

public slots:
    void open()
    {
        m_isOpen = true;
        m_screen->open();
        emit isOpenChanged();
    }
    /// The panel needs its glass for something else, such as an alarm.
    void close()
    {
        m_isOpen = false;
        m_screen->close();
        emit isOpenChanged();
    }

signals:
    void isOpenChanged();
    /// The operator left by Exit, in the language that he chose meanwhile.
    void left(HMI::SystemSet::Language language);

private slots:
    void endVisit()
    {
        if (!m_isOpen)
            return; // it was this host that closed it
        m_isOpen = false;
        emit isOpenChanged();
        emit left(MeyerSingleton<HMI::SystemSet>::instance().getLanguage());
    }

private:
    ISystemSet *m_screen;
    bool m_isOpen = false;
};
