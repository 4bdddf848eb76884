import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

CardNetwork {
    id: _card

    property alias layout: _layout
    property alias nicButtonFlow: _nicButtonFlow
    property alias titleText: _titleText

    height: _layout.height

    Column {
        id: _layout

        width: _card.width

        Item {
            id: _titleRow

            width: _layout.width
            height: 0.6 * _card.rowHeight

            Image {
                id: _icon

                anchors.verticalCenter: _titleRow.verticalCenter
                x: _card.fontPixelSize
                width: height
                height: 0.4 * _card.rowHeight
                source: "qrc:/setting/icons/newnetwork1.png"
                sourceSize: "40x40"
            }

            Text {
                id: _titleText

                anchors.left: _icon.right
                anchors.leftMargin: 8
                anchors.verticalCenter: _titleRow.verticalCenter
                color: Toolkit.Palette.caption
                font.family: Toolkit.Palette.font
                font.pixelSize: _card.fontPixelSize
            }
        }

        Item {
            id: _nicButtonRow

            width: _layout.width
            height: _nicButtonFlow.height + 12

            Flow {
                id: _nicButtonFlow

                x: _card.fontPixelSize
                y: 10
                width: _nicButtonRow.width - x
                spacing: 15
            }
        }
    }
}
