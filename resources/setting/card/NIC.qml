import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit
import "../flatui" as FlatUI

CardNIC {
    id: _card

    property alias titleText: _title.label
    property alias networkText: _networkText
    property alias pingTestText: _pingTestText
    property alias testButtonText: _testButtonText
    property alias combobox: _combobox
    property alias testBeepButton: _testBeepButton
    property alias pingBusy: _pingBusy

    height: _layout.height

    Column {
        id: _layout

        width: _card.width
        bottomPadding: 4

        FlatUI.CardTitle {
            id: _title

            width: _layout.width
            height: _card.titleRowHeight
            margin: _card.labelMargin
            iconSource: "qrc:/setting/icons/newdefault.png"
        }

        Item {
            id: _networkRow

            width: _layout.width
            height: 0.92 * _card.titleRowHeight

            Text {
                id: _networkText

                anchors.verticalCenter: _networkRow.verticalCenter
                x: _card.labelMargin
                color: Toolkit.Palette.text
                font.family: Toolkit.Palette.font
                font.pixelSize: _title.label.font.pixelSize
                // The room that is left of the field.
                width: Math.max(0, _combobox.x - x)
                elide: Text.ElideRight
            }

            ComboBox {
                id: _combobox

                anchors.right: _networkRow.right
                anchors.rightMargin: _card.fieldMargin
                anchors.verticalCenter: _networkRow.verticalCenter
                width: 3.061 * _card.titleRowHeight
                height: 0.612 * _card.titleRowHeight
                fontPixelSize: _title.label.font.pixelSize
            }
        }

        Item {
            id: _pingTestRow

            width: _layout.width
            height: 0.92 * _card.titleRowHeight

            Text {
                id: _pingTestText

                anchors.verticalCenter: _pingTestRow.verticalCenter
                x: _card.labelMargin
                color: Toolkit.Palette.text
                font.family: Toolkit.Palette.font
                font.pixelSize: _title.label.font.pixelSize
                // The room that is left of the field.
                width: Math.max(0, _pingBusy.x - x)
                elide: Text.ElideRight
            }

            Image {
                id: _pingBusy

                anchors.right: _testBeepButton.left
                anchors.verticalCenter: _pingTestRow.verticalCenter
                width: 0.5 * _card.titleRowHeight
                height: width
                visible: false
                source: "qrc:/setting/icons/loading@2x.png"
                sourceSize: "40x40"

                NumberAnimation on rotation {
                    running: _pingBusy.visible
                    from: 0
                    to: 360
                    duration: 2000
                    loops: Animation.Infinite
                }
            }

            BeepButton {
                id: _testBeepButton

                anchors.right: _pingTestRow.right
                anchors.rightMargin: _card.fieldMargin
                width: 1.5 * height
                height: _pingTestRow.height
                opacity: enabled ? pressFade : 0.6

                Text {
                    id: _testButtonText

                    anchors.right: _testBeepButton.right
                    anchors.verticalCenter: _testBeepButton.verticalCenter
                    color: Toolkit.Palette.focus
                    font.family: Toolkit.Palette.font
                    font.pixelSize: _title.label.font.pixelSize
                }
            }
        }
    }
}
