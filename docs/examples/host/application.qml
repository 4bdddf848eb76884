import QtQuick 2.15
import QtQuick.Window 2.15

Window {
    width: 1024
    height: 600
    visible: true

    Rectangle {
        anchors.fill: parent
        color: "#1B2128"
        visible: !settings.isOpen

        Text {
            anchors.centerIn: parent
            color: "white"
            font.pixelSize: 32
            text: "Set up"

            MouseArea {
                anchors.fill: parent
                anchors.margins: -24
                onClicked: settings.open()
            }
        }
    }
}
