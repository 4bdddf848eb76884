import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit
import "../flatui" as FlatUI

CardTime {
    id: _card

    readonly property real rowHeight: timeTitleRowHeight
    property alias titleText: _title.label
    property alias dateLabel: _dateLabel

    height: Math.round(_content.y + _content.height)

    FlatUI.CardTitle {
        id: _title

        width: _card.width
        height: _card.rowHeight
        iconSource: "qrc:/setting/icons/newtime.png"
    }

    Item {
        id: _content

        x: _title.margin
        y: _title.height
        width: _card.width - 2 * x
        height: 1.3 * _card.rowHeight

        Text {
            id: _dateLabel

            anchors.verticalCenter: _content.verticalCenter
            width: 0.4 * _content.width
            font.family: Toolkit.Palette.font
            font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
            font.weight: Font.Medium
            color: Toolkit.Palette.text
            elide: Text.ElideRight
        }

        Text {
            id: _dateTime

            anchors.right: _content.right
            anchors.verticalCenter: _content.verticalCenter
            width: 0.6 * _content.width
            horizontalAlignment: Text.AlignRight
            // A clock that nobody sees must not cost a frame a second.
            text: _card.visible ? _card.currentDateTime : ""
            textFormat: Text.PlainText
            opacity: _edit.pressFade
            font.family: Toolkit.Palette.font
            font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
            font.weight: Font.Medium
            color: Toolkit.Palette.accent
        }

        BeepButton {
            id: _edit

            anchors.right: _dateTime.right
            anchors.verticalCenter: _dateTime.verticalCenter
            width: _dateTime.contentWidth
            height: _dateTime.contentHeight
            onClicked: _card.openDialog()
        }
    }
}
