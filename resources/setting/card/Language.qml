import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

CardLanguage {
    id: _card

    readonly property real rowHeight: languageTitleRowHeight

    height: _rows.height
    radius: 8

    Column {
        id: _rows

        width: _card.width

        Repeater {
            id: _languages

            model: _card.languageModel

            BeepButton {
                id: _row

                readonly property bool isFirst: index === 0
                readonly property bool isLast: index === _languages.count - 1
                readonly property bool marked: model.isCurrent

                width: _rows.width
                height: Math.round(1.1 * _card.rowHeight)
                onClicked: {
                    if (!marked)
                        _card.languageModel.setCurrentLanguage(index);
                }

                background: Rectangle {
                    id: _ground

                    radius: 8
                    color: Toolkit.Palette.surface

                    // Rows inside the list are square where they meet.
                    Rectangle {
                        visible: !_row.isFirst
                        width: _row.width
                        height: 8
                        color: Toolkit.Palette.surface
                    }

                    Rectangle {
                        visible: !_row.isLast
                        y: _row.height - 8
                        width: _row.width
                        height: 8
                        color: Toolkit.Palette.surface
                    }

                    Rectangle {
                        anchors.fill: _ground
                        anchors.margins: 8
                        visible: _row.pressed || _row.marked
                        radius: 6
                        color: Toolkit.Palette.markedSurface
                    }
                }

                contentItem: Item {
                    id: _content

                    // The marked row has the ground of a pressed one already.
                    opacity: _row.pressFade

                    Image {
                        id: _tick

                        anchors.left: _content.left
                        anchors.leftMargin: 16
                        anchors.verticalCenter: _content.verticalCenter
                        width: Math.round(0.3 * _card.rowHeight)
                        height: width
                        visible: _row.marked
                        source: "qrc:/setting/icons/newtickgreen.png"
                        sourceSize: "40x40"
                        fillMode: Image.PreserveAspectFit
                        smooth: true
                    }

                    Text {
                        anchors.left: _content.left
                        anchors.leftMargin: 16 + _tick.width + 12
                        anchors.right: _content.right
                        anchors.rightMargin: 16
                        anchors.verticalCenter: _content.verticalCenter
                        text: model.text
                        textFormat: Text.PlainText
                        font.family: Toolkit.Palette.font
                        font.pixelSize: Math.max(1, 0.31 * _card.rowHeight)
                        font.weight: Font.Medium
                        color: Toolkit.Palette.strongHint
                        elide: Text.ElideRight
                    }
                }
            }
        }
    }
}
