import QtQuick 2.15
import QQuickSystemSet 1.0
import QQuickSystemSet.Toolkit 1.0 as Toolkit

// Width and height come from the host before the document is completed; a binding would override them.
AppRootItem {
    id: _app

    // Set by the root, for a host that wants narrow screens which lie laid out as those which stand.
    property bool isCompact: false
    readonly property bool isNarrow: isCompact || (width < height && width < 800)
    // Of the menu while it is shown; the screen itself may be hidden.
    readonly property real menuWidth: _menu.shown ? _menu.width : 0

    property alias titleBar: _title
    property alias titleText: _titleText
    property alias menuBar: _menu
    property alias cardsParent: _cardLayout
    property alias cardPool: _cardPool
    property alias settingsText: _settingsText
    property alias scrollBarTouchItem: _scrollBar

    visible: false

    Item {
        id: _title

        // Over the cards, which would take the touches beside the return button for their scrolling.
        z: 1
        width: parent.width
        // The root sets it; starting at a likely height spares loading a font for nothing.
        height: 72

        // Painted before the left one: a column of pixels that both have part in is white in the menu too.
        Rectangle {
            id: titleRightBg

            anchors.left: titleLeftBg.right
            width: parent.width - titleLeftBg.width
            height: parent.height
            color: _app.isNarrow ? Toolkit.Palette.surface : Toolkit.Palette.background
        }

        Rectangle {
            id: titleLeftBg

            width: _app.menuWidth
            height: parent.height
            visible: _menu.shown
            color: Toolkit.Palette.surface

            Text {
                id: _settingsText

                anchors.centerIn: parent
                text: "Setting"
                font.family: Toolkit.Palette.titleFont
                font.pixelSize: Math.max(1, _title.height / 3)
                color: Toolkit.Palette.title
            }
        }

        Text {
            id: _titleText

            anchors.verticalCenter: parent.verticalCenter
            font.family: Toolkit.Palette.titleFont
            font.pixelSize: Math.max(1, _title.height / 3)
            color: Toolkit.Palette.title
        }
    }

    Rectangle {
        id: _menu

        property bool shown: true
        property alias column: _menuCol
        property alias bottomContainer: bottomButtonContainer

        y: _title.height
        height: parent.height - _title.height
        visible: shown

        Column {
            id: _menuCol

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.topMargin: 12
            spacing: 12
        }

        Item {
            id: bottomButtonContainer

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 16
            height: 54
        }
    }

    Flickable {
        id: _cardPool

        // A low screen has no room to spare above the field beside the keyboard.
        readonly property real topMargin: _app.isCompact ? 4 : _app.isNarrow ? 12 : 0

        x: _menu.shown ? _menu.width + 20 : (_app.isNarrow ? 12 : 40)
        y: _title.height + topMargin
        width: Math.max(0, _menu.shown ? _app.width - _menu.width - 40
                                       : _app.width - (_app.isNarrow ? 24 : 80))
        height: Math.max(0, _app.height - _title.height - topMargin)
        clip: true
        contentHeight: _cardLayout.height
        // What comes last does not end where the glass does. A little less room below is better than a page that
        // scrolls for it.
        bottomMargin: contentHeight + 8 > height ? _cardLayout.spacing : 0
        boundsBehavior: Flickable.StopAtBounds
        // A page that fits answers to a tap at once instead of waiting whether it becomes a scroll.
        interactive: contentHeight + bottomMargin > height
        Toolkit.ScrollBar.vertical: _scrollBar

        Column {
            id: _cardLayout

            width: _cardPool.width
            spacing: 12
        }
    }

    Toolkit.ScrollBar {
        id: _scrollBar

        anchors.top: _cardPool.top
        anchors.bottom: _cardPool.bottom
        anchors.right: parent.right
        anchors.rightMargin: 4
        width: 12
        leftPadding: 3
        rightPadding: 3
        minimumSize: 24 / Math.max(24, height)
        visible: _cardPool.visible && size < 1.0

        contentItem: Rectangle {
            radius: width / 2
            color: _scrollBar.pressed ? Toolkit.Palette.caption : Toolkit.Palette.track
        }
    }
}
