import QtQuick 2.15
import QtQuick.Templates 2.15 as T

T.Popup {
    id: popup

    readonly property int hideKey: 0x100000
    property int layoutType: 5
    // Of the full keyboard: 0 small letters, 1 capitals, 2 symbols.
    property int page: 0

    // Every layout has as many rows as the others: the height stays as it is while the keyboard is shown.
    readonly property var pads: ({
        0: ["123", "456", "789", ".0"],
        2: ["123", "456", "789", "0"]
    })
    readonly property var pages: [
        ["1234567890", "qwertyuiop", "asdfghjkl", "zxcvbnm.:"],
        ["1234567890", "QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM.:"],
        ["!@#$%^&*()", "-_=+[]{}\\|", ";:'\"<>/?", "`~,."]
    ]
    readonly property var rows: (layoutType === 5 ? pages[page] : pads[layoutType]).map(row => row.split(""))
        .concat([layoutType === 5 ? ["Hide", "Shift", " ", "Delete", "Enter"] : ["Hide", "Delete", "Enter"]])

    function press(name, isRepeat) {
        switch (name) {
        case "Hide": sender.strike(hideKey, "", false); break
        case "Shift": page = (page + 1) % pages.length; break
        case "Delete": sender.strike(Qt.Key_Backspace, "\b", isRepeat); break
        case "Enter": sender.strike(Qt.Key_Return, "\r", false); break
        default: sender.strike(name.toUpperCase().charCodeAt(0), name, false)
        }
    }

    width: parent ? parent.width : 0
    height: parent ? Math.min(250, parent.height * 0.55) : 0
    y: parent ? parent.height - height : 0
    padding: 0
    focus: false
    closePolicy: T.Popup.NoAutoClose
    onAboutToShow: page = 0

    contentItem: Rectangle {
        color: "#D5D9E0"

        // What falls between two keys must not reach what lies below.
        MouseArea { anchors.fill: parent }

        Column {
            anchors.fill: parent

            Repeater {
                model: popup.rows

                Row {
                    id: row

                    readonly property var names: modelData

                    anchors.horizontalCenter: parent.horizontalCenter
                    height: parent.height / popup.rows.length

                    Repeater {
                        model: row.names

                        MouseArea {
                            id: area

                            width: popup.width / Math.max(5, row.names.length)
                            height: row.height
                            onPressed: if (modelData === "Delete") popup.press(modelData, false)
                            onClicked: if (modelData !== "Delete") popup.press(modelData, false)

                            Rectangle {
                                anchors.fill: parent
                                anchors.margins: 2
                                radius: 6
                                color: area.pressed ? "#86909C" : "white"
                            }
                            Text {
                                anchors.centerIn: parent
                                text: modelData
                            }
                            Timer {
                                interval: 450
                                repeat: true
                                running: area.pressed && modelData === "Delete"
                                onRunningChanged: interval = 450
                                onTriggered: {
                                    interval = 60
                                    popup.press(modelData, true)
                                }
                            }
                        }
                    }
                }
            }
        }
    }
}
