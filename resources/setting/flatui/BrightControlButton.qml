import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

BrightButton {
    id: _button

    property bool isIncrement: true
    property int buttonSize: 0
    readonly property string iconSource: isIncrement ? "qrc:/setting/icons/newincrease.png"
                                                     : "qrc:/setting/icons/newdecrease.png"

    width: buttonSize
    height: buttonSize

    background: Toolkit.Icon {
        source: _button.iconSource
        fillMode: Image.PreserveAspectFit
        opacity: _button.pressFade
    }
}
