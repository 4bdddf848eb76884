#pragma once

#include <QtCore/QString>

/// A key as the toolkit knows it, for a key symbol as a viewer sends it.
struct Key {
    int code = 0;
    /// What the key types; empty when it types nothing.
    QString text;
    /// Set for the keys that change what others do.
    Qt::KeyboardModifier modifier = Qt::NoModifier;

    bool isKnown() const { return code != 0; }
    /// An unknown symbol gives a key that is not known.
    static Key fromSymbol(quint32 symbol);
};
