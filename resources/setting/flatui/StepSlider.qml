import QtQuick 2.15

// A slider of whole steps. Made of plain items, because importing the toolkit's
// templates for the first page alone takes a good tenth of the whole start.
Item {
    id: _slider

    property int from: 0
    property int to: 1
    property real value: from
    property real handleSize: 0
    property alias background: _groove
    property alias handle: _handle
    property alias touchItem: _area
    readonly property bool pressed: _area.pressed
    readonly property real visualPosition: (Math.max(from, Math.min(to, value)) - from) / (to - from)

    // The finger asks for another step; value is the user's to change.
    signal moved(int step)
    signal grabbed

    function moveTo(x) {
        var position = (x - handleSize / 2) / Math.max(1, width - handleSize);
        var step = Math.round(from + Math.max(0, Math.min(1, position)) * (to - from));
        if (step !== Math.round(value))
            moved(step);
    }

    Rectangle {
        id: _groove

        y: Math.round((_slider.height - height) / 2)
        width: _slider.width
        radius: height / 2
        color: "#C9CDD4"

        Rectangle {
            width: Math.round(_groove.width * _slider.value / _slider.to)
            height: _groove.height
            radius: _groove.radius
            color: "#3482FF"
        }
    }

    Rectangle {
        id: _handle

        x: Math.round(_slider.visualPosition * (_slider.width - width))
        y: Math.round((_slider.height - height) / 2)
        width: _slider.handleSize
        height: width
        radius: width / 2
        color: _area.pressed ? "#F2F3F5" : "#FFFFFF"
        border.color: "#d0d0d0"
    }

    MouseArea {
        id: _area

        property bool dragging: false
        property real startX: 0
        // Where on the handle the finger took hold, so that the handle does not jump under it.
        property real offset: 0

        anchors.fill: _slider
        // A finger that has begun to slide is not a scroll any more.
        preventStealing: dragging
        onPressed: {
            dragging = false;
            startX = mouse.x;
            var center = _handle.x + _handle.width / 2;
            offset = Math.abs(mouse.x - center) <= _handle.width / 2 ? mouse.x - center : 0;
            _slider.grabbed();
        }
        onPositionChanged: {
            if (Math.abs(mouse.x - startX) >= Qt.styleHints.startDragDistance)
                dragging = true;
            if (dragging)
                _slider.moveTo(mouse.x - offset);
        }
        onReleased: _slider.moveTo(mouse.x - offset)
    }
}
