import QtQuick 2.15

// The machine's own page: what an operator sees all day, before and after a visit to the settings.
Rectangle {
    id: _page

    signal settingsRequested()

    readonly property bool isPortrait: width < height
    readonly property int gap: Math.round(Math.min(width, height) / 32)
    readonly property int barHeight: Math.round(Math.min(width, height) / 9)

    property int second: 0

    color: "#1B2128"

    // The process breathes once a second, and rests while the page is covered.
    Timer {
        interval: 1000
        repeat: true
        running: _page.visible
        onTriggered: _page.second += 1
    }

    Rectangle {
        id: _bar

        width: _page.width
        height: _page.barHeight
        color: "#232A32"

        Text {
            x: _page.gap
            anchors.verticalCenter: _bar.verticalCenter
            text: "Mixing line 2"
            color: "#F2F5F8"
            font.pixelSize: Math.round(_bar.height * 0.4)
        }

        Row {
            anchors.right: _bar.right
            anchors.rightMargin: _page.gap
            anchors.verticalCenter: _bar.verticalCenter
            spacing: Math.round(_page.gap / 2)

            Rectangle {
                anchors.verticalCenter: _state.verticalCenter
                width: Math.round(_bar.height / 5)
                height: width
                radius: width / 2
                color: "#3FB27F"
            }

            Text {
                id: _state

                text: "Running"
                color: "#AEB8C4"
                font.pixelSize: Math.round(_bar.height * 0.3)
            }
        }
    }

    Grid {
        id: _tiles

        readonly property int tileWidth: Math.floor((_page.width - (columns + 1) * _page.gap) / columns)
        readonly property int tileHeight: Math.floor((_footer.y - y - rows * _page.gap) / rows)

        x: _page.gap
        y: _bar.height + _page.gap
        columns: _page.isPortrait ? 1 : 3
        rows: _page.isPortrait ? 3 : 1
        spacing: _page.gap

        GaugeTile {
            width: _tiles.tileWidth
            height: _tiles.tileHeight
            caption: "Temperature"
            unit: "°C"
            accent: "#E0A63C"
            maximum: 120
            decimals: 1
            value: 74.2 + 0.3 * Math.sin(_page.second / 9)
        }

        GaugeTile {
            width: _tiles.tileWidth
            height: _tiles.tileHeight
            caption: "Pressure"
            unit: "bar"
            accent: "#47A8BD"
            maximum: 10
            decimals: 2
            value: 3.64 + 0.05 * Math.sin(_page.second / 5)
        }

        GaugeTile {
            width: _tiles.tileWidth
            height: _tiles.tileHeight
            caption: "Tank level"
            unit: "%"
            accent: "#3FB27F"
            maximum: 100
            value: 58 + 6 * Math.sin(_page.second / 30)
        }
    }

    Item {
        id: _footer

        y: _page.height - height
        width: _page.width
        height: Math.round(_page.barHeight * 1.4)

        Text {
            x: _page.gap
            anchors.verticalCenter: _footer.verticalCenter
            text: "Batch 4711  ·  Recipe 12"
            color: "#8B97A5"
            font.pixelSize: Math.round(_page.barHeight * 0.28)
        }

        Rectangle {
            id: _button

            anchors.right: _footer.right
            anchors.rightMargin: _page.gap
            y: Math.round((_footer.height - height) / 2)
            width: Math.round(_page.barHeight * 2.8)
            height: Math.round(_page.barHeight * 0.9)
            radius: 6
            color: _touch.pressed ? "#4A5765" : "#38434F"

            MouseArea {
                id: _touch

                anchors.fill: _button
                onClicked: _page.settingsRequested()

                Text {
                    anchors.centerIn: _touch
                    text: "Settings"
                    color: "#F2F5F8"
                    font.pixelSize: Math.round(_page.barHeight * 0.34)
                }
            }
        }
    }
}
