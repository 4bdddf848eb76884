import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

BeepButton {
    id: _button

    property alias txt: _text
    property alias fontSize: _text.font.pixelSize

    width: _text.width + 20
    opacity: pressFade

    background: Rectangle {
        radius: 4
        color: _button.checked ? Toolkit.Palette.accent : Toolkit.Palette.surface
        border.color: Toolkit.Palette.accent
        border.width: _button.checked ? 0 : 1
    }

    Text {
        id: _text

        anchors.centerIn: _button
        font.family: Toolkit.Palette.font
        color: _button.checked ? "white" : Toolkit.Palette.accent
    }
}
