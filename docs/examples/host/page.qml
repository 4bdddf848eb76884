import QtQuick 2.15

// What the panel shows otherwise. The settings screen lies on top of it while it is open.
Rectangle {
    color: "#1B2128"

    Text {
        anchors.centerIn: parent
        color: "white"
        text: "Pump 1 is running"
    }
}
