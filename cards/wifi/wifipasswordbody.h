#pragma once

#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/QQuickItem>

class QQuickText;

namespace QSP {

class BeepButton;
class PasswordInput;

/// What the password dialog of the Wi-Fi page holds: a line that says how it
/// stands and, while a password can be entered, the field, "Show Password" and "Connect".
class WifiPasswordBody : public QQuickItem
{
    Q_OBJECT

public:
    explicit WifiPasswordBody(int fontPixelSize, QQuickItem *parent = nullptr);

    QString password() const;
    /// Empties the field, masks it again and takes the focus from it.
    void clear();
    void endEditing();

    /// Shows or hides all but the status line.
    void setEntryVisible(bool visible);
    bool isEntryVisible() const { return m_entryVisible; }
    /// A text of the context CardWifi; errors are red.
    void setStatus(const char *text, bool error);
    /// The place for the busy indicator while a network is being joined.
    QQuickItem *busyPlace() const { return m_busyPlace; }
    /// Where the field ends, which the keyboard must not cover.
    qreal fieldBottom() const { return m_frame->y() + m_frame->height(); }

signals:
    void confirmed();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void addField();
    void addShowButton();
    void addConnectButton();
    void layout();
    void onFocusChanged(bool focused);
    void updateEcho();
    QQuickText *addText(QQuickItem *parent, const char *text) const;

    int m_fontPixelSize;
    bool m_entryVisible = true;
    QQuickText *m_status;
    QQuickItem *m_entry;
    QQuickItem *m_busyPlace;
    QQuickRectangle *m_frame = nullptr;
    QQuickItem *m_inputView = nullptr;
    PasswordInput *m_input = nullptr;
    BeepButton *m_showButton = nullptr;
    QQuickRectangle *m_box = nullptr;
    QQuickItem *m_tick = nullptr;
    QQuickText *m_showText = nullptr;
    BeepButton *m_connectButton = nullptr;
    QQuickText *m_connectText = nullptr;
};

} // namespace QSP
