import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

BeepButton {
    id: _button

    property alias imgUrl: _icon.source

    // All of it: the background alone lies on its own colour.
    opacity: pressFade

    background: Rectangle {
        radius: 12
    }

    Toolkit.Icon {
        id: _icon

        anchors.verticalCenter: _button.verticalCenter
        x: width / 2 - 4
        width: height
        height: 0.57 * _button.height
    }

    Text {
        anchors.verticalCenter: _button.verticalCenter
        x: _icon.width * 1.875 - 4
        width: Math.max(0, _button.width - x - 4)
        text: _button.text
        textFormat: Text.PlainText
        font.family: Toolkit.Palette.font
        font.pixelSize: Math.max(1, 0.357 * _button.height)
        color: Toolkit.Palette.text
        elide: Text.ElideRight
    }
}
