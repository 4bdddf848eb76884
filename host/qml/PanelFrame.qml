import QtQuick 2.15

// What is beside the glass: the panel's frame, with the key that leads into the settings and back.
Rectangle {
    id: _frame

    property bool down: false

    color: "#0E1216"

    Rectangle {
        id: _key

        anchors.centerIn: _frame
        width: 48
        height: 96
        radius: 8
        color: _frame.down ? "#4A5765" : "#242C34"
        border.color: "#3D4853"

        Rectangle {
            anchors.horizontalCenter: _key.horizontalCenter
            y: 22
            width: 22
            height: width
            radius: width / 2
            color: "transparent"
            border.color: "#AEB8C4"
            border.width: 3
        }

        Text {
            anchors.horizontalCenter: _key.horizontalCenter
            y: 58
            text: "SET"
            color: "#AEB8C4"
            font.pixelSize: 14
        }
    }
}
