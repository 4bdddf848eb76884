import QtQuick 2.15
import QQuickSystemSet.Toolkit 1.0 as Toolkit

// One of the four fields of an address.
Item {
    id: _rect

    property alias input: _input
    property var owner: null
    property int fontPixelSize: 20

    height: parent ? parent.height : 0
    width: 1.528 * height

    // On whole pixels of the row, so that all four frames are equally sharp.
    Rectangle {
        x: Math.round(_rect.x) - _rect.x
        width: Math.round(_rect.x + _rect.width) - Math.round(_rect.x)
        height: _rect.height
        radius: 4
        border.width: 1
        border.color: _input.activeFocus ? Toolkit.Palette.focus : Toolkit.Palette.fieldBorder
        visible: _input.enabled
    }

    TextInput {
        id: _input

        property string oldInputText: "0"

        function leave(restored) {
            if (restored)
                text = oldInputText
            focus = false
        }

        anchors.fill: parent
        horizontalAlignment: TextInput.AlignHCenter
        verticalAlignment: TextInput.AlignVCenter
        font.family: Toolkit.Palette.font
        font.pixelSize: _rect.fontPixelSize
        text: "0"
        selectionColor: Toolkit.Palette.accent
        validator: RegularExpressionValidator {
            regularExpression: /^(0?(25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)?)$/
        }

        // A screen that the host deletes takes the focus from a field that these handlers can no longer read.
        onActiveFocusChanged: {
            if (!_input)
                return
            if (activeFocus) {
                oldInputText = text
                _rect.owner.onClick()
            } else if (text === "") {
                text = "0"
            }
        }
        onEditingFinished: {
            if (_input)
                text = text.replace(/^0+/, "")
        }

        Keys.onPressed: {
            switch (event.key) {
            case Qt.Key_Escape:
            case 0x100000: // the hide key of the on-screen keyboard
                leave(true)
                break
            case Qt.Key_Clear:
                clear()
                break
            case Qt.Key_Enter:
            case Qt.Key_Return:
                leave(false)
                break
            default:
                return
            }
            event.accepted = true
        }
    }
}
