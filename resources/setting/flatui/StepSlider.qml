import QtQuick 2.15
import QQuickSystemSet.Toolkit 1.0 as Toolkit

// The look of a slider of whole steps.
Toolkit.StepSlider {
    id: _slider

    property real handleSize: 0
    property real grooveHeight: 0

    stepSize: 1

    background: Rectangle {
        id: _groove

        y: Math.round((_slider.height - height) / 2)
        width: _slider.width
        height: _slider.grooveHeight
        radius: height / 2
        color: Toolkit.Palette.track

        Rectangle {
            width: Math.round(_groove.width * _slider.value / _slider.to)
            height: _groove.height
            radius: _groove.radius
            color: Toolkit.Palette.accent
        }
    }

    handle: Rectangle {
        x: Math.round(_slider.visualPosition * (_slider.width - width))
        y: Math.round((_slider.height - height) / 2)
        width: _slider.handleSize
        height: width
        radius: width / 2
        color: _slider.pressed ? Toolkit.Palette.accentGlow : Toolkit.Palette.surface
        border.color: _slider.pressed ? Toolkit.Palette.accent : "#d0d0d0"
        border.width: _slider.pressed ? 3 : 1
    }
}
