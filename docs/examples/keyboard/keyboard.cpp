#include "keysender.h"

#include <qvkb/qvkbpluginloader.h>

#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

#include <map>

namespace {

/// The keyboard of one window. It outlives the window, but its popup does not.
class Keyboard final : public QVkbInterface
{
public:
    void initialize(QQuickWindow *window, int z) override
    {
        if (!window)
            return;
        if (!m_popup)
            build(window);
        if (m_popup)
            m_popup->setZ(z);
    }
    QQuickPopup *popup() override { return m_popup; }
    QQuickItem *item() override { return m_popup ? m_popup->contentItem() : nullptr; }
    void show(bool visible) override
    {
        if (m_popup)
            m_popup->setVisible(visible);
    }
    void reserved1() override {}
    void setLayoutType(VkbLayoutType type) override
    {
        if (type != VkbAddressDigits && type != VkbPlainDigits && type != VkbFullKeyboard)
            return;
        m_type = type;
        if (m_popup)
            m_popup->setProperty("layoutType", type);
    }
    void reserved2() override {}
    bool isVisible() override { return m_popup && m_popup->isVisible(); }

private:
    void build(QQuickWindow *window)
    {
        auto *engine = new QQmlEngine(window);
        engine->rootContext()->setContextProperty(QStringLiteral("sender"), new KeySender(window));
        QQmlComponent component(engine, QUrl(QStringLiteral("qrc:/example/keyboard.qml")));
        m_popup = qobject_cast<QQuickPopup *>(component.create());
        if (!m_popup) {
            qWarning("%s", qUtf8Printable(component.errorString()));
            return;
        }
        m_popup->setParent(window->contentItem()); // dies with the window, before the engine does
        m_popup->setParentItem(window->contentItem());
        setLayoutType(m_type);
    }

    QPointer<QQuickPopup> m_popup;
    VkbLayoutType m_type = VkbFullKeyboard;
};

class Loader final : public QVkbPluginLoader
{
public:
    Keyboard keyboard;
};

} // namespace

QVkbPluginLoader *QVkbPluginLoader::instance(QQuickWindow *window)
{
    // Never destroyed: a keyboard may be asked for its state while the process ends.
    static auto &loaders = *new std::map<QQuickWindow *, Loader>;
    return &loaders[window];
}

QVkbInterface *QVkbPluginLoader::vkb()
{
    return &static_cast<Loader *>(this)->keyboard;
}
