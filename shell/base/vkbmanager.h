#pragma once

#include "meyersingleton.h"
#include "qvkb/qvkbpluginloader.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace QSP {

/// The panel's on-screen keyboard, loaded on first demand.
///
/// Slides the card column up so that the keyboard does not cover the focused
/// field. Everything works, minus the keyboard, on a panel that has none.
/// GUI thread only.
class VkbManager : public QObject, public MeyerSingleton<VkbManager>
{
    Q_OBJECT

public:
    /// Key code that the keyboard's hide key sends.
    static constexpr int hideKey = 0x100000;

    /// Asks the platform for the keyboard of the root's window.
    void loadPlugin();
    /// Shows the keyboard, loading it on first demand (at most once a process),
    /// or hides it, which takes the focus from the edited field. Hiding never loads.
    void showVkb(bool show);
    /// Takes the focus from the edited field and puts the keyboard away, if there is one.
    void endEdit();
    /// Whether the keyboard is shown; false without one.
    bool isVisible() const;
    /// Chooses the keys; nothing without a keyboard.
    void setLayoutType(VkbLayoutType type) const;
    /// Height of the keyboard in pixels; 0 without one.
    qreal getHeight() const;

    /// To be told by every text field of the screen when its active focus comes
    /// or goes. A field that lost it hides the keyboard, unless another field of
    /// the screen has gained it: the toolkit tells the gaining field first.
    void fieldFocusChanged(QQuickItem *field, bool focused);

signals:
    void visibleChanged();

private slots:
    void onVkbVisibleChange();

private:
    bool isLoaded() const { return m_keyboard && m_window; }
    bool loadOnce();
    void show();
    void takeFocus() const;
    void slideColumn();

    QVkbInterface *m_keyboard = nullptr;
    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_field;
    QMetaObject::Connection m_visibleConnection;
    QMetaObject::Connection m_slideConnection;
    bool m_savedModal = false;
};

} // namespace QSP
