import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

CIpInput {
    id: _ip

    property alias ipi0: _field0.input
    property alias ipi1: _field1.input
    property alias ipi2: _field2.input
    property alias ipi3: _field3.input

    implicitWidth: _row.width

    Row {
        id: _row

        // In line with the other controls of a card, which stand at its right edge.
        anchors.right: _ip.right
        height: _ip.height
        spacing: 3

        IpInputRect {
            id: _field0

            owner: _ip
            fontPixelSize: _ip.fontPixelSize
        }

        Text {
            anchors.verticalCenter: _row.verticalCenter
            text: "·"
            font.family: Toolkit.Palette.font
            font.pixelSize: _ip.fontPixelSize
            color: _ip.enabled ? Toolkit.Palette.fieldText : Toolkit.Palette.disabledText
        }

        IpInputRect {
            id: _field1

            owner: _ip
            fontPixelSize: _ip.fontPixelSize
        }

        Text {
            anchors.verticalCenter: _row.verticalCenter
            text: "·"
            font.family: Toolkit.Palette.font
            font.pixelSize: _ip.fontPixelSize
            color: _ip.enabled ? Toolkit.Palette.fieldText : Toolkit.Palette.disabledText
        }

        IpInputRect {
            id: _field2

            owner: _ip
            fontPixelSize: _ip.fontPixelSize
        }

        Text {
            anchors.verticalCenter: _row.verticalCenter
            text: "·"
            font.family: Toolkit.Palette.font
            font.pixelSize: _ip.fontPixelSize
            color: _ip.enabled ? Toolkit.Palette.fieldText : Toolkit.Palette.disabledText
        }

        IpInputRect {
            id: _field3

            owner: _ip
            fontPixelSize: _ip.fontPixelSize
        }
    }
}
