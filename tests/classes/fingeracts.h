#pragma once

#include "tests/support/operator.h"

#include <QtCore/QMetaType>

#include <array>

/// What an operator does to an item with a finger.
using Act = void (*)(QQuickItem *);

struct NamedAct {
    const char *name;
    Act act;
};

inline constexpr std::array<NamedAct, 3> acts{{
    {"tap", [](QQuickItem *item) { Operator::tap(item); }},
    {"touch", Operator::touch},
    {"press", Operator::press},
}};

Q_DECLARE_METATYPE(Act)
