import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit
import "../flatui" as FlatUI

CardVersion {
    id: _card

    readonly property real rowHeight: versionTitleRowHeight

    property alias titleText: _title.label
    property alias qrCodeText: _qrCodeText
    property alias serialNumberLabel: _serialNumberLabel

    height: _title.height + _contentRow.height

    // It may have failed before anybody listened.
    Component.onCompleted: checkIconStatus(_title.icon.status)

    // The same file is written anew each time, so the image has to be told to look at it again.
    onQrCodeUrlChanged: {
        _qrCode.source = "";
        _qrCode.source = Qt.binding(function () { return _card.qrCodeUrl; });
    }

    FlatUI.CardTitle {
        id: _title

        width: _card.width
        height: _card.rowHeight
        iconSource: "qrc:/setting/icons/newcloud.png"

        Text {
            x: Math.round(_title.icon.x + (_title.icon.width - width) / 2)
            anchors.verticalCenter: _title.verticalCenter
            visible: _card.iconError
            text: "!"
            font.family: Toolkit.Palette.font
            font.pixelSize: _title.label.font.pixelSize
            font.bold: true
            color: "red"
        }
    }

    Connections {
        target: _title.icon
        function onStatusChanged() {
            _card.checkIconStatus(_title.icon.status);
        }
    }

    Item {
        id: _contentRow

        y: _title.height
        width: _card.width
        height: Math.round(3.6 * _card.rowHeight)

        // As large as the picture, to the pixel: a code that is scaled again is hard to read.
        Rectangle {
            id: _frame

            x: Math.round(_title.margin)
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
                font.family: Toolkit.Palette.font
                font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
                color: Toolkit.Palette.caption
                elide: Text.ElideRight
            }

            // Above the picture, whose white margin would hide the line.
            Rectangle {
                anchors.fill: _frame
                color: "transparent"
                border.width: 1
                border.color: Toolkit.Palette.separator
            }
        }

        Column {
            id: _texts

            anchors.left: _frame.right
            anchors.leftMargin: 2 * _title.margin
            anchors.right: _contentRow.right
            anchors.rightMargin: _title.margin
            anchors.verticalCenter: _frame.verticalCenter
            spacing: Math.round(0.15 * _card.rowHeight)

            Text {
                id: _serialNumberLabel

                width: _texts.width
                font.family: Toolkit.Palette.font
                font.pixelSize: Math.max(1, 0.31 * _card.rowHeight)
                color: Toolkit.Palette.hint
                elide: Text.ElideRight
            }

            Text {
                width: _texts.width
                text: _card.serialNumber
                textFormat: Text.PlainText
                font.family: Toolkit.Palette.font
                font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
                font.weight: Font.Medium
                color: Toolkit.Palette.text
                wrapMode: Text.WrapAnywhere
                maximumLineCount: 4
                elide: Text.ElideRight
            }
        }
    }
}
