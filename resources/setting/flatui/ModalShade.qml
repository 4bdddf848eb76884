import QtQuick 2.15

// Dims everything behind a modal dialog.
Rectangle {
    color: "#66000000"
}
