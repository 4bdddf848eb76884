import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

CMacInput {
    id: _mac

    property alias input: _input

    Rectangle {
        anchors.fill: parent
        radius: 4
        border.width: 1
        border.color: _input.activeFocus ? Toolkit.Palette.focus : Toolkit.Palette.fieldBorder
        visible: _input.enabled
    }

    TextInput {
        id: _input

        property string oldInputText: ""

        anchors.fill: parent
        horizontalAlignment: TextInput.AlignHCenter
        verticalAlignment: TextInput.AlignVCenter
        text: "00:00:00:00:00:00"
        font.family: Toolkit.Palette.font
        selectionColor: Toolkit.Palette.accent
        inputMask: "HH:HH:HH:HH:HH:HH"
        validator: RegularExpressionValidator {
            regularExpression: /^(?:[0-9A-Fa-f]{2}[:-]){5}[0-9A-Fa-f]{2}$/
        }

        onActiveFocusChanged: {
            if (activeFocus) {
                oldInputText = text
                _mac.onClick()
            }
        }

        // After the field itself, whose accepted() comes from the Return key.
        Keys.priority: Keys.AfterItem
        Keys.onPressed: {
            switch (event.key) {
            case Qt.Key_Escape:
            case 0x100000: // the hide key of the on-screen keyboard
                text = oldInputText
                focus = false
                break
            case Qt.Key_Enter:
            case Qt.Key_Return:
                focus = false
                break
            default:
                return
            }
            event.accepted = true
        }
    }
}
