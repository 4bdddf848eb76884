import QtQuick 2.15
import QQuickSystemSet 1.0

CardVersion {
    id: _card

    readonly property real rowHeight: versionTitleRowHeight

    property alias titleText: _titleText
    property alias qrCodeText: _qrCodeText
    property alias serialNumberLabel: _serialNumberLabel

    height: _titleRow.height + _contentRow.height

    // The same file is written anew each time, so the image has to be told to look at it again.
    onQrCodeUrlChanged: {
        _qrCode.source = "";
        _qrCode.source = Qt.binding(function () { return _card.qrCodeUrl; });
    }

    Item {
        id: _titleRow

        width: _card.width
        height: _card.rowHeight

        Image {
            id: _icon

            x: Math.round(_titleText.font.pixelSize)
            anchors.verticalCenter: _titleRow.verticalCenter
            width: Math.round(0.459 * _card.rowHeight)
            height: width
            source: "qrc:/setting/icons/newcloud.png"
            sourceSize: Qt.size(40, 40)
            fillMode: Image.PreserveAspectFit
            onStatusChanged: _card.checkIconStatus(status)

            Text {
                anchors.centerIn: _icon
                visible: _card.iconError
                text: "!"
                font.pixelSize: _titleText.font.pixelSize
                font.bold: true
                color: "red"
            }
        }

        Text {
            id: _titleText

            anchors.left: _icon.right
            anchors.leftMargin: Math.round(0.5 * font.pixelSize)
            anchors.right: _titleRow.right
            anchors.rightMargin: _icon.x
            anchors.verticalCenter: _titleRow.verticalCenter
            font.pixelSize: Math.max(1, 0.383 * _card.rowHeight)
            color: "#86909C"
            elide: Text.ElideRight
        }
    }

    Item {
        id: _contentRow

        y: _titleRow.height
        width: _card.width
        height: Math.round(3.6 * _card.rowHeight)

        // As large as the picture, to the pixel: a code that is scaled again is hard to read.
        Rectangle {
            id: _frame

            x: _icon.x
            width: Math.floor(3.1 * _card.rowHeight)
            height: width
            color: "#FFFFFF"

            Image {
                id: _qrCode

                anchors.fill: _frame
                source: _card.qrCodeUrl
                fillMode: Image.PreserveAspectFit
                cache: false
            }

            Text {
                id: _qrCodeText

                anchors.centerIn: _frame
                width: _frame.width - 8
                visible: _qrCode.status !== Image.Ready
                horizontalAlignment: Text.AlignHCenter
                font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
                color: "#86909C"
                elide: Text.ElideRight
            }

            // Above the picture, whose white margin would hide the line.
            Rectangle {
                anchors.fill: _frame
                color: "transparent"
                border.width: 1
                border.color: "#E5E6EB"
            }
        }

        Column {
            id: _texts

            anchors.left: _frame.right
            anchors.leftMargin: 2 * _icon.x
            anchors.right: _contentRow.right
            anchors.rightMargin: _icon.x
            anchors.verticalCenter: _frame.verticalCenter
            spacing: Math.round(0.15 * _card.rowHeight)

            Text {
                id: _serialNumberLabel

                width: _texts.width
                font.pixelSize: Math.max(1, 0.31 * _card.rowHeight)
                color: "#86909C"
                elide: Text.ElideRight
            }

            Text {
                width: _texts.width
                text: _card.serialNumber
                textFormat: Text.PlainText
                font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
                font.weight: Font.Medium
                color: "#1D2129"
                wrapMode: Text.WrapAnywhere
                maximumLineCount: 4
                elide: Text.ElideRight
            }
        }
    }
}
