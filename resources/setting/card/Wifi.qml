import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

CardWifi {
    id: _card

    readonly property int margin: fontSize
    readonly property int iconSize: rowHeight / 2
    // Dark enough to be read in a bright hall.
    readonly property color captionColor: Toolkit.Palette.hint

    property alias layout: _column
    property alias connectedWlanText: _connectedText
    property alias current: _current
    property alias resetRow: _connectedRow
    property alias nearWlanTxt: _nearText
    property alias nearbyWlanText: _nearText
    property alias scanButton: _scanButton
    property alias scanButtonImage: _scanImage
    property alias scaning: _busy
    property alias list: _list
    property alias offlineText: _offlineText
    property alias emptyRoom: _emptyRoom
    property alias bigScanButton: _bigScanButton
    property alias bigScanButtonImage: _bigScanImage

    Column {
        id: _column

        x: _card.margin
        y: _card.topInset
        width: Math.max(0, _card.width - 2 * _card.margin)
        topPadding: 4

        Item {
            id: _connectedRow

            width: _column.width
            height: _card.rowHeight

            Text {
                id: _connectedText

                anchors.left: _connectedRow.left
                anchors.right: _connectedRow.right
                // Clear of the reset button.
                anchors.rightMargin: 2 * _card.rowHeight
                anchors.verticalCenter: _connectedRow.verticalCenter
                font.family: Toolkit.Palette.font
                font.pixelSize: Math.max(1, _card.fontSize)
                color: _card.captionColor
                elide: Text.ElideRight
            }
        }

        // Kept free while no network is joined: the list below must not move under a finger.
        Item {
            id: _currentSpace

            width: _column.width
            height: _card.rowHeight

            Item {
                id: _current

                anchors.fill: _currentSpace
                visible: false
            }

            Text {
                id: _offlineText

                anchors.left: _currentSpace.left
                anchors.right: _currentSpace.right
                anchors.verticalCenter: _currentSpace.verticalCenter
                visible: false
                font.family: Toolkit.Palette.font
                font.pixelSize: Math.max(1, _card.fontSize)
                color: Toolkit.Palette.text
                elide: Text.ElideRight
            }
        }

        Item {
            id: _nearRow

            width: _column.width
            height: _card.rowHeight

            Text {
                id: _nearText

                anchors.left: _nearRow.left
                anchors.right: _busyHome.left
                anchors.verticalCenter: _nearRow.verticalCenter
                font.family: Toolkit.Palette.font
                font.pixelSize: Math.max(1, _card.fontSize)
                color: _card.captionColor
                elide: Text.ElideRight
            }

            Item {
                id: _busyHome

                anchors.right: _scanImage.left
                anchors.rightMargin: _card.iconSize
                y: _scanImage.y
                width: _card.iconSize
                height: _card.iconSize

                // Placed without anchors: it goes into the password dialog while a network is being joined.
                Image {
                    id: _busy

                    width: _card.iconSize
                    height: _card.iconSize
                    visible: false
                    source: "qrc:/setting/icons/loading@2x.png"
                    sourceSize: "40x40"
                    fillMode: Image.PreserveAspectFit

                    NumberAnimation on rotation {
                        running: _busy.visible
                        from: 0
                        to: 360
                        duration: 2000
                        loops: Animation.Infinite
                    }
                }
            }

            Image {
                id: _scanImage

                anchors.right: _nearRow.right
                y: Math.floor((_card.rowHeight - _card.iconSize) / 2)
                width: _card.iconSize
                height: _card.iconSize
                source: "qrc:/setting/icons/newrefresh.png"
                sourceSize: "40x40"
                fillMode: Image.PreserveAspectFit
            }

            BeepButton {
                id: _scanButton

                anchors.fill: _scanImage
                anchors.margins: -10
            }
        }

        Item {
            id: _list

            width: _column.width
            height: 1
        }
    }

    // The room for the list, while nothing is in it.
    Item {
        id: _emptyRoom

        x: _column.x
        y: _column.y + _list.y
        width: _column.width
        height: Math.max(0, _card.height - y)

        Image {
            id: _bigScanImage

            x: Math.round((_emptyRoom.width - width) / 2)
            y: Math.round((_emptyRoom.height - height) / 2)
            width: Math.round(1.25 * _card.rowHeight)
            height: width
            source: "qrc:/setting/icons/newrefresh.png"
            sourceSize: "64x64"
            fillMode: Image.PreserveAspectFit
        }

        BeepButton {
            id: _bigScanButton

            anchors.fill: _bigScanImage
            anchors.margins: -10
        }
    }
}
