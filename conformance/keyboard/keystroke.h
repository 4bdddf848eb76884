#pragma once

#include <QtCore/QEvent>
#include <QtCore/QString>

#include <string>

namespace Conformance {

/// What the hide key sends.
constexpr int HideKeyCode = 0x100000;

/// A key event as a field got it.
struct KeyStroke {
    QEvent::Type type = QEvent::None;
    int code = 0;
    QString text;
    bool isRepeat = false;

    bool isPress() const { return type == QEvent::KeyPress; }
    bool isReturn() const;
    /// For a reader: "press of 0x1000007 "7"".
    std::string told() const;
};

} // namespace Conformance
