import QtQuick 2.15
import QQuickSystemSet 1.0

BeepButton {
    id: _button

    property alias txt: _text
    property alias fontSize: _text.font.pixelSize

    width: _text.width + 20
    opacity: pressFade

    background: Rectangle {
        radius: 4
        color: _button.checked ? "#3482FF" : "#FFFFFF"
        border.color: "#3482FF"
        border.width: _button.checked ? 0 : 1
    }

    Text {
        id: _text

        anchors.centerIn: _button
        color: _button.checked ? "white" : "#3482FF"
    }
}
