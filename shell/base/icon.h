#pragma once

#include <QtQuick/private/qquickimage_p.h>

namespace QSP {

/// An image of one of the screen's icons, read as it is stored and scaled only as it is painted.
///
/// The toolkit's own image has a reading of its own for each source size and way to fill, and so finds none of
/// FirstIcons where either is told. An icon that is shown much smaller than stored is no case for this.
class Icon : public QQuickImage
{
    Q_OBJECT

public:
    explicit Icon(QQuickItem *parent = nullptr);
    static void registerType();

protected:
    void load() override;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::Icon)
