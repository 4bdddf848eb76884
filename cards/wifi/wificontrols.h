#pragma once

#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

namespace QSP {

class BeepButton;

/// The buttons of the Wi-Fi page and its busy indicator, which turns beside them or in the dialog.
class WifiControls : public QObject
{
    Q_OBJECT

public:
    /// @p card offers them by the aliases of its document, but for "Reset", which is made.
    WifiControls(QQuickItem *card, int rowHeight, int fontPixelSize);

    /// While @p scanning nothing can be asked for. The indicator turns then, or in @p place when that is not
    /// null.
    void show(bool scanning, QQuickItem *place);
    /// Whether the indicator can be seen in the place that show() was told.
    bool isBusyInPlace() const;

signals:
    void scanClicked();
    void resetClicked();

private:
    struct Button {
        QPointer<BeepButton> button;
        QPointer<QQuickItem> image; ///< fades with it; may be null
    };
    void add(BeepButton *button, QQuickItem *image);
    static void fade(const Button &button);

    QVector<Button> m_buttons;
    QPointer<QQuickItem> m_busy;
    QPointer<QQuickItem> m_busyHome;
};

} // namespace QSP
