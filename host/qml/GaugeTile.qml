import QtQuick 2.15
import PanelHost 1.0

Rectangle {
    id: _tile

    property alias caption: _caption.text
    property alias unit: _unit.text
    property alias accent: _gauge.color
    property real value: 0
    property real maximum: 100
    property int decimals: 0

    readonly property int unitOfLength: Math.max(1, Math.min(width, height) / 12)

    color: "#29313A"
    radius: 8

    Text {
        id: _caption

        x: _tile.unitOfLength
        y: _tile.unitOfLength * 0.8
        color: "#AEB8C4"
        font.pixelSize: Math.max(12, _tile.unitOfLength * 0.85)
    }

    Gauge {
        id: _gauge

        readonly property real roomTop: _tile.unitOfLength * 2.4
        readonly property real room: _tile.height - roomTop
        // The dial is open below, so it looks centred when it stands a little low.
        anchors.horizontalCenter: _tile.horizontalCenter
        y: Math.round(roomTop + (room - height) / 2 + Math.min(room - height, height * 0.1) / 2)
        width: Math.round(Math.min(_tile.width - 2 * _tile.unitOfLength, room - _tile.unitOfLength / 2))
        height: width
        fraction: _tile.value / _tile.maximum
    }

    Text {
        id: _number

        anchors.centerIn: _gauge
        color: "#F2F5F8"
        text: _tile.value.toFixed(_tile.decimals)
        font.pixelSize: Math.max(12, _gauge.width / 4.2)
    }

    Text {
        id: _unit

        anchors.horizontalCenter: _gauge.horizontalCenter
        anchors.top: _number.bottom
        color: "#8B97A5"
        font.pixelSize: Math.max(10, _gauge.width / 10)
    }
}
