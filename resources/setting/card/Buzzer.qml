import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit
import "../flatui" as FlatUI

CardBuzzer {
    id: _card

    readonly property int rowHeight: buzzerTitleRowHeight
    property alias titleText: _title.label
    property alias buzzerLabel: _buzzerLabel

    height: Math.round(_content.y + _content.height)

    FlatUI.CardTitle {
        id: _title

        width: _card.width
        height: _card.rowHeight
        iconSource: "qrc:/setting/icons/newbuzzer.png"
    }

    Item {
        id: _content

        y: _title.height
        width: _card.width
        height: 1.3 * _card.rowHeight

        Text {
            id: _buzzerLabel

            anchors.left: _content.left
            anchors.leftMargin: _title.margin
            anchors.right: _switch.left
            anchors.verticalCenter: _content.verticalCenter
            font.family: Toolkit.Palette.font
            font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
            font.weight: Font.Medium
            color: Toolkit.Palette.text
            elide: Text.ElideRight
        }

        BeepSwitch {
            id: _switch

            anchors.right: _content.right
            anchors.rightMargin: _card.rowHeight / 2
            anchors.verticalCenter: _content.verticalCenter
            width: 1.2 * _card.rowHeight
            height: 0.58 * _card.rowHeight
            on: _card.buzzerOn
            onClicked: _card.switchClicked()
        }
    }
}
