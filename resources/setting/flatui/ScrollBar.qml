import QtQuick 2.15

// The vertical scroll bar of a flickable: shown while there is more than fits, and to be dragged.
Item {
    id: _bar

    property Flickable flickable
    property alias touchItem: _area

    readonly property real extent: flickable.contentHeight + flickable.bottomMargin
    readonly property real ratio: extent > 0 ? flickable.height / extent : 1
    readonly property real travel: extent - flickable.height

    width: 12
    visible: flickable.visible && ratio < 1

    Rectangle {
        id: _thumb

        readonly property real room: _bar.height - height

        x: 3
        y: _bar.travel > 0 ? room * Math.max(0, Math.min(1, _bar.flickable.contentY / _bar.travel)) : 0
        width: 6
        height: Math.max(24, _bar.height * _bar.ratio)
        radius: width / 2
        color: _area.pressed ? "#86909C" : "#C9CDD4"
    }

    MouseArea {
        id: _area

        property real offset: 0

        anchors.fill: _bar
        onPressed: offset = mouse.y >= _thumb.y && mouse.y < _thumb.y + _thumb.height ? mouse.y - _thumb.y : _thumb.height / 2
        onPositionChanged: {
            var position = (mouse.y - offset) / Math.max(1, _thumb.room);
            _bar.flickable.contentY = Math.max(0, Math.min(1, position)) * _bar.travel;
        }
    }
}
