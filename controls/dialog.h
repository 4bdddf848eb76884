#pragma once

#include <QtQuick/QQuickItem>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

class QQuickRectangle;
class QQuickText;

namespace QSP {

class BeepButton;

/// A white panel with a title bar, an optional close button and one body.
///
/// Sizes of its parts follow the screen; its own size, whether it is modal and
/// how else it closes are up to its user. Tied to its parent item: closes
/// whenever the screen is shown or hidden, or leaves its window.
class Dialog : public QQuickPopup
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    Q_PROPERTY(bool enableCloseButton READ enableCloseButton WRITE setEnableCloseButton NOTIFY
                   enableCloseButtonChanged)
    Q_PROPERTY(QQuickItem *bodyItem READ bodyItem WRITE setBodyItem NOTIFY bodyItemChanged)

public:
    explicit Dialog(QQuickItem *parent = nullptr);
    static void registerType();

    /// Shown as plain text, shortened where the title bar ends.
    QString title() const;
    void setTitle(const QString &title);

    bool enableCloseButton() const { return m_enableCloseButton; }
    void setEnableCloseButton(bool enable);

    QQuickItem *bodyItem() const { return m_bodyItem; }
    /// Takes the item over and fits it below the title bar. The body before it
    /// stays where it is, as a child of the content; null leaves the dialog without one.
    void setBodyItem(QQuickItem *body);

signals:
    void enableCloseButtonChanged();
    void titleChanged();
    void bodyItemChanged();

private:
    int titleFontPixelSize() const;
    void applyTitleFont();
    void fitTitleText();
    void relayout();
    void createCloseButton();

    BeepButton *m_closeButton = nullptr;
    QQuickText *m_titleText = nullptr;
    QQuickItem *m_titleBar = nullptr;
    QQuickRectangle *m_separator = nullptr;
    QPointer<QQuickItem> m_bodyItem;
    bool m_enableCloseButton = false;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::Dialog)
