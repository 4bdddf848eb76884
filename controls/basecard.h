#pragma once

#include <QtQuick/private/qquickrectangle_p.h>

namespace QSP {

/// The base of a settings card: a white rounded rectangle, 80 high until its document says otherwise.
class BaseCard : public QQuickRectangle
{
    Q_OBJECT

public:
    explicit BaseCard(QQuickItem *parent = nullptr);
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::BaseCard)
