#pragma once

#include <QtCore/QObject>

namespace QSP {

class TimeEditPopup;

/// What the keys Return, Escape, Delete and the keyboard's hide key mean in the
/// fields of the time editor.
class TimeKeyPressFilter : public QObject
{
    Q_OBJECT

public:
    /// @p popup must outlive the filter.
    explicit TimeKeyPressFilter(TimeEditPopup *popup);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    TimeEditPopup *m_popup;
};

} // namespace QSP
