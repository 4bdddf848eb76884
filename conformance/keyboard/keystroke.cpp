#include "conformance/keyboard/keystroke.h"

namespace Conformance {

bool KeyStroke::isReturn() const
{
    return code == Qt::Key_Return || code == Qt::Key_Enter;
}

std::string KeyStroke::told() const
{
    return QStringLiteral("%1 of 0x%2 \"%3\"")
        .arg(isPress() ? QStringLiteral("press") : QStringLiteral("release"))
        .arg(code, 0, 16)
        .arg(text.simplified())
        .toStdString();
}

} // namespace Conformance
