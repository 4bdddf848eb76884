#pragma once

#include "plugin/isystemset.h"

/// The one implementation of ISystemSet. Holds nothing: what it drives is the root item and GlobalInfo.
class ImplSystemSet final : public ISystemSet
{
public:
    QQuickItem *init(QQmlEngine *engine, int width, int height, int rootPopupZ) override;
    void open() override;
    void close() override;
};
