import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit
import "../flatui" as FlatUI

CardDNS {
    id: _card

    property alias titleText: _title.label
    property alias dns1Text: _dns1Text
    property alias dns2Text: _dns2Text
    property alias dns1Input: _dns1Input
    property alias dns2Input: _dns2Input

    readonly property int rowHeight: 0.92 * titleRowHeight
    readonly property int fieldHeight: 0.7 * titleRowHeight

    height: _layout.height

    Column {
        id: _layout

        width: _card.width
        bottomPadding: 4

        FlatUI.CardTitle {
            id: _title

            width: _layout.width
            height: _card.titleRowHeight
            margin: _card.labelMargin
            iconSource: "qrc:/setting/icons/newdns.png"
        }

        Item {
            id: _dns1Row

            objectName: "dns1Row"
            width: _layout.width
            height: _card.rowHeight

            Text {
                id: _dns1Text

                anchors.verticalCenter: _dns1Row.verticalCenter
                x: _card.labelMargin
                color: Toolkit.Palette.text
                font.family: Toolkit.Palette.font
                font.pixelSize: _title.label.font.pixelSize
                // The room that is left of the field.
                width: Math.max(0, _dns1Input.x - x)
                elide: Text.ElideRight
            }

            FlatUI.IpInput {
                id: _dns1Input

                anchors.right: _dns1Row.right
                anchors.rightMargin: _card.fieldMargin
                anchors.verticalCenter: _dns1Row.verticalCenter
                width: Math.round(7.1 * height)
                height: _card.fieldHeight
                fontPixelSize: _title.label.font.pixelSize
            }
        }

        Item {
            id: _dns2Row

            objectName: "dns2Row"
            width: _layout.width
            height: _card.rowHeight

            Text {
                id: _dns2Text

                anchors.verticalCenter: _dns2Row.verticalCenter
                x: _card.labelMargin
                color: Toolkit.Palette.text
                font.family: Toolkit.Palette.font
                font.pixelSize: _title.label.font.pixelSize
                // The room that is left of the field.
                width: Math.max(0, _dns2Input.x - x)
                elide: Text.ElideRight
            }

            FlatUI.IpInput {
                id: _dns2Input

                anchors.right: _dns2Row.right
                anchors.rightMargin: _card.fieldMargin
                anchors.verticalCenter: _dns2Row.verticalCenter
                width: Math.round(7.1 * height)
                height: _card.fieldHeight
                fontPixelSize: _title.label.font.pixelSize
            }
        }
    }
}
