#include "controls/qmlproperty.h"
