// A dump has the types that functions lead to, as far as somebody uses them.

#include "qvkb/qvkbpluginloader.h"

extern "C" __attribute__((visibility("default"))) void whatTheScreenCalls(QVkbInterface *keyboard)
{
    keyboard->show(true);
}
