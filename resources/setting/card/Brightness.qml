import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import QQuickSystemSet 1.0
import "../flatui" as FlatUI

CardBrightness {
    id: _card

    readonly property int rowHeight: brightnessTitleRowHeight
    property alias titleText: _title.label

    height: Math.round(_content.y + _content.height)

    FlatUI.CardTitle {
        id: _title

        width: _card.width
        height: _card.rowHeight
        iconSource: "qrc:/setting/icons/newbright.png"
    }

    Row {
        id: _content

        readonly property int buttonSize: Math.round(0.55 * _card.rowHeight)

        x: _title.margin
        y: _title.height
        width: _card.width - 2 * x
        height: 1.3 * _card.rowHeight
        spacing: 0.03 * _card.rowHeight

        FlatUI.BrightControlButton {
            id: _minus

            anchors.verticalCenter: _content.verticalCenter
            buttonSize: _content.buttonSize
            isIncrement: false
            autoRepeat: true
            onPressed: _card.setBrightnessValue(_card.brightnessValue - 1)
            onPressedChanged: {
                if (!pressed)
                    _card.saveBrightness();
            }
            onCanceled: _card.saveBrightness()
        }

        T.Slider {
            id: _slider

            // A level from outside may lie beyond the ends; that is shown, not corrected.
            function withinEnds(level) {
                return Math.max(from, Math.min(to, Math.round(level)));
            }

            width: Math.max(0, _content.width - _minus.width - _level.width - _plus.width - 3 * _content.spacing)
            height: _content.height
            from: 1
            to: 32
            stepSize: 1
            snapMode: T.Slider.SnapAlways
            value: _card.brightnessValue
            onValueChanged: {
                if (withinEnds(value) !== withinEnds(_card.brightnessValue))
                    _card.brightnessValue = withinEnds(value);
            }
            onPressedChanged: {
                if (pressed)
                    _card.beepIfOn();
                else if (_card) // gone when the host deletes the screen under the finger
                    _card.saveBrightness();
            }

            background: Rectangle {
                id: _groove

                y: Math.round((_slider.height - height) / 2)
                width: _slider.width
                height: Math.round(0.18 * _card.rowHeight)
                radius: height / 2
                color: "#C9CDD4"

                Rectangle {
                    width: Math.round(_groove.width * _slider.value / 32)
                    height: _groove.height
                    radius: _groove.radius
                    color: "#3482FF"
                }
            }

            handle: Rectangle {
                x: Math.round(_slider.visualPosition * (_slider.width - width))
                y: Math.round((_slider.height - height) / 2)
                width: Math.round(0.55 * _card.rowHeight)
                height: width
                radius: width / 2
                color: _slider.pressed ? "#F2F3F5" : "#FFFFFF"
                border.color: "#d0d0d0"
            }
        }

        Item {
            id: _level

            anchors.verticalCenter: _content.verticalCenter
            width: Math.round(0.5 * _card.rowHeight)
            height: width

            Text {
                anchors.centerIn: _level
                text: _card.brightnessValue
                font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
                font.bold: true
                color: "#3482FF"
            }
        }

        FlatUI.BrightControlButton {
            id: _plus

            anchors.verticalCenter: _content.verticalCenter
            buttonSize: _content.buttonSize
            autoRepeat: true
            onPressed: _card.setBrightnessValue(_card.brightnessValue + 1)
            onPressedChanged: {
                if (!pressed)
                    _card.saveBrightness();
            }
            onCanceled: _card.saveBrightness()
        }
    }
}
