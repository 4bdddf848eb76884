import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit
import "../flatui" as FlatUI

CardBrightness {
    id: _card

    readonly property int rowHeight: brightnessTitleRowHeight
    property alias titleText: _title.label
    property alias sliderTouchItem: _slider

    height: Math.round(_content.y + _content.height)
    held: _minus.pressed || _slider.pressed || _plus.pressed

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
        }

        FlatUI.StepSlider {
            id: _slider

            width: Math.max(0, _content.width - _minus.width - _level.width - _plus.width - 3 * _content.spacing)
            height: _content.height
            from: 1
            to: 32
            value: _card.brightnessValue
            handleSize: Math.round(0.55 * _card.rowHeight)
            grooveHeight: Math.round(0.18 * _card.rowHeight)
            // A level from outside may lie beyond the ends; that is shown, not corrected.
            onValueChanged: {
                if (pressed)
                    _card.brightnessValue = value;
            }
            onPressedChanged: {
                if (pressed)
                    _card.beepIfOn();
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
                textFormat: Text.PlainText
                font.family: Toolkit.Palette.font
                font.pixelSize: Math.max(1, 0.35 * _card.rowHeight)
                font.bold: true
                color: Toolkit.Palette.accent
            }
        }

        FlatUI.BrightControlButton {
            id: _plus

            anchors.verticalCenter: _content.verticalCenter
            buttonSize: _content.buttonSize
            autoRepeat: true
            onPressed: _card.setBrightnessValue(_card.brightnessValue + 1)
        }
    }
}
