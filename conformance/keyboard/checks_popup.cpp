#include "conformance/keyboard/keyboardchecks.h"
#include "conformance/keyboard/keyboardrun.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>

namespace Conformance {

namespace {

constexpr int RoomForField = 100;
constexpr QSize Sizes[] = {{1024, 600}, {1280, 800}, {800, 480}, {480, 800}, {600, 1024}};

std::string told(const QRectF &area)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(area.x())
        .arg(area.y())
        .arg(area.width())
        .arg(area.height())
        .toStdString();
}

} // namespace

namespace KeyboardCheckFunctions {

void popupFocus(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    ruling.expect(!stage.popup()->hasFocus(), "popup", "its focus is false", "true");
    stage.keyboard()->show(true);
    ruling.expect(stage.field()->hasActiveFocus(), "show", "the field keeps the active focus when shown",
                  "it lost it");
    stage.hide();
    ruling.expect(stage.field()->hasActiveFocus(), "show", "the field keeps the active focus when hidden",
                  "it lost it");
}

void popupStays(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    ruling.expect(stage.popup()->closePolicy() == QQuickPopup::NoAutoClose, "popup",
                  "its closePolicy is NoAutoClose", std::to_string(stage.popup()->closePolicy()));
    if (!stage.show(VkbFullKeyboard))
        return;
    stage.tap(QPointF(stage.area().center().x(), stage.area().top() / 2));
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(stage.window(), &escape);
    Stage::pause(Stage::HidingMs);
    ruling.expect(stage.keyboard()->isVisible(), "popup", "stays after a touch beside it and after Escape",
                  "it closed");
}

void popupShown(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    stage.keyboard()->show(true);
    ruling.expect(stage.keyboard()->isVisible(), "show", "isVisible() is true when show(true) returns",
                  "false");
    ruling.expect(stage.popup()->isVisible(), "show", "the popup is visible when show(true) returns",
                  "it is not");
}

void popupOnce(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    int changes = 0;
    QObject::connect(stage.popup(), &QQuickPopup::visibleChanged, stage.window(), [&changes] { ++changes; });
    const auto expect = [&changes, &ruling](int count, const char *when) {
        ruling.expect(changes == count, "popup",
                      "visibleChanged came " + std::to_string(count) + " times " + when,
                      std::to_string(changes));
        changes = 0;
    };
    stage.hide();
    expect(0, "for hiding what is hidden");
    stage.show(VkbFullKeyboard);
    expect(1, "for showing");
    stage.show(VkbFullKeyboard);
    expect(0, "for showing what is shown");
    stage.hide();
    expect(1, "for hiding");
}

void popupGeometry(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    QRectF area;
    bool isVisible = false;
    const auto look = [&stage, &area, &isVisible] {
        isVisible = stage.keyboard()->isVisible();
        area = stage.area();
    };
    const QMetaObject::Connection looking =
        QObject::connect(stage.popup(), &QQuickPopup::visibleChanged, stage.window(), look);
    stage.show(VkbFullKeyboard);
    ruling.expect(isVisible, "isVisible", "true when the popup tells that it became visible", "false");
    ruling.expect(!area.isEmpty() && area == stage.area(), "item",
                  "where it will be, " + told(stage.area()) + ", when the popup tells", told(area));
    isVisible = true;
    stage.hide();
    ruling.expect(!isVisible, "isVisible", "false when the popup tells that it was hidden", "true");
    QObject::disconnect(looking);
}

void popupHidden(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling) || !stage.show(VkbFullKeyboard))
        return;
    stage.keyboard()->show(false);
    const auto isHidden = [&stage] { return !stage.keyboard()->isVisible(); };
    ruling.expect(Stage::waitFor(isHidden, Stage::HidingMs), "show",
                  "isVisible() is false " + std::to_string(Stage::HidingMs) + " ms after show(false)",
                  "true");
}

void popupBeside(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling) || !stage.show(VkbFullKeyboard))
        return;
    stage.tap(stage.other()->boundingRect().center());
    ruling.expect(stage.other()->touches() == 1, "popup",
                  "a touch above the keyboard reaches what lies there", "it did not");
}

void popupBelow(KeyboardRun &run, Ruling &ruling)
{
    Stage stage(run.library());
    if (!isUsable(stage, ruling) || !stage.show(VkbPlainDigits))
        return;
    constexpr int step = 25;
    const QRectF area = stage.area().adjusted(1, 1, -1, -1);
    for (int x = qRound(area.left()); x <= area.right(); x += step) {
        stage.tap(QPointF(x, area.center().y()));
        stage.click(QPointF(x, area.center().y()));
    }
    ruling.expect(stage.field()->touches() == 0, "item", "no touch of it reaches what lies below",
                  std::to_string(stage.field()->touches()) + " did");
}

void popupAbove(KeyboardRun &run, Ruling &ruling)
{
    const KeyMap::Key *key = wantedKey(run.keysOf(VkbAddressDigits).typing(QLatin1Char('5')), ruling);
    if (!key)
        return;
    Stage stage(run.library());
    if (!isUsable(stage, ruling))
        return;
    QQuickPopup dialog;
    dialog.setParentItem(stage.window()->contentItem());
    dialog.setZ(Stage::PopupZ);
    dialog.setWidth(stage.window()->width());
    dialog.setHeight(stage.window()->height());
    dialog.setModal(true);
    dialog.setFocus(true);
    dialog.setClosePolicy(QQuickPopup::NoAutoClose);
    dialog.open();
    auto *field = new RecordingField(dialog.contentItem());
    if (!stage.show(VkbAddressDigits))
        return;
    field->forceActiveFocus();
    stage.tap(key->point);
    ruling.expect(!field->strokes().isEmpty(), "popup", "its keys can be struck above a dialog that is open",
                  "the dialog covers them");
    dialog.close();
}

void popupPlace(KeyboardRun &run, Ruling &ruling)
{
    for (const QSize &size : Sizes) {
        Stage stage(run.library(), size);
        if (!isUsable(stage, ruling) || !stage.show(VkbFullKeyboard))
            return;
        const QRectF area = stage.area();
        const std::string at = QStringLiteral(" at %1x%2").arg(size.width()).arg(size.height()).toStdString();
        ruling.expect(area.left() >= 0 && area.right() <= size.width(), "item",
                      "between the sides of the window" + at, told(area));
        ruling.expect(qAbs(area.bottom() - size.height()) < 1, "item", "ends at the lower edge" + at,
                      told(area));
        ruling.expect(area.top() >= RoomForField, "item",
                      "leaves " + std::to_string(RoomForField) + " pixels above" + at, told(area));
    }
}

} // namespace KeyboardCheckFunctions

} // namespace Conformance
