#include "tests/platform/keyboardfixture.h"

#include <algorithm>

namespace {

const QString KeyPrefix = QStringLiteral("vkbKey_");

} // namespace

QTouchDevice *KeyboardFixture::touchScreen()
{
    static QTouchDevice *device = QTest::createTouchDevice();
    return device;
}

KeyboardFixture::KeyboardFixture(const QSize &size)
    : field(new QQuickTextInput(window.contentItem())), keyboard(QVkbPluginLoader::instance(&window)->vkb())
{
    window.resize(size);
    field->setSize(QSizeF(size.width(), 40));
    window.show();
    window.requestActivate();
    if (!QTest::qWaitForWindowActive(&window))
        qCritical("the window was not activated");
    field->forceActiveFocus();
    keyboard->initialize(&window, PopupZ);
    keyboard->popup()->setModal(false);
}

void KeyboardFixture::show(VkbLayoutType type)
{
    keyboard->show(true);
    keyboard->setLayoutType(type);
    QCoreApplication::processEvents();
}

QVector<QQuickItem *> KeyboardFixture::keys() const
{
    return Operator::items(keyboard->item(), [](QQuickItem *item) {
        return item->isVisible() && item->objectName().startsWith(KeyPrefix);
    });
}

QQuickItem *KeyboardFixture::key(const QString &name) const
{
    const QVector<QQuickItem *> all = keys();
    const auto found = std::find_if(all.begin(), all.end(), [&name](const QQuickItem *item) {
        return item->objectName() == KeyPrefix + name;
    });
    return found == all.end() ? nullptr : *found;
}

QQuickItem *KeyboardFixture::key(QChar character) const
{
    return key(character == QLatin1Char(' ') ? QStringLiteral("space") : QString(character));
}

QStringList KeyboardFixture::keyNames() const
{
    QStringList names;
    const QVector<QQuickItem *> shown = keys();
    for (const QQuickItem *item : shown)
        names << item->objectName().mid(KeyPrefix.size());
    names.sort();
    return names;
}

QPoint KeyboardFixture::center(const QString &name) const
{
    const QQuickItem *item = key(name);
    if (!item) {
        qCritical("there is no key %s", qPrintable(name));
        return QPoint(-1, -1);
    }
    return Operator::centerOf(item);
}

void KeyboardFixture::tap(const QString &name)
{
    const QPoint point = center(name);
    touchDown(0, point);
    touchUp(0, point);
}

void KeyboardFixture::click(const QString &name)
{
    QTest::mouseClick(&window, Qt::LeftButton, Qt::NoModifier, center(name));
}

void KeyboardFixture::touchDown(int id, const QPoint &point)
{
    QTest::touchEvent(&window, touchScreen()).press(id, point, &window);
}

void KeyboardFixture::touchMove(int id, const QPoint &point)
{
    QTest::touchEvent(&window, touchScreen()).move(id, point, &window);
}

void KeyboardFixture::touchUp(int id, const QPoint &point)
{
    QTest::touchEvent(&window, touchScreen()).release(id, point, &window);
}

void KeyRecorder::record(QKeyEvent *event)
{
    strokes.append({event->type(), event->key(), event->text(), event->modifiers(), event->isAutoRepeat()});
    event->accept();
}
