import QtQuick 2.15
import QQuickSystemSet.Toolkit 1.0 as Toolkit

// The first row of a card: an icon and the card's name.
Item {
    id: _row

    property alias icon: _icon
    property alias iconSource: _icon.source
    property alias label: _label
    property real margin: _label.font.pixelSize

    Toolkit.Icon {
        id: _icon

        anchors.left: _row.left
        anchors.leftMargin: _row.margin
        anchors.verticalCenter: _row.verticalCenter
        width: 0.459 * _row.height
        height: width
        sourceSize: "40x40"
    }

    Text {
        id: _label

        anchors.left: _icon.right
        anchors.leftMargin: Math.round(0.2 * _row.height)
        anchors.right: _row.right
        anchors.rightMargin: _row.margin
        anchors.verticalCenter: _row.verticalCenter
        font.family: Toolkit.Palette.font
        font.pixelSize: Math.max(1, 0.383 * _row.height)
        color: Toolkit.Palette.caption
        elide: Text.ElideRight
    }
}
