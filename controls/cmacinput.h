#pragma once

#include "hmi/systemset.h"

#include <QtCore/QMetaType>
#include <QtQuick/QQuickItem>

class QQmlEngine;
class QQuickTextInput;

Q_DECLARE_METATYPE(HMI::MAC)

namespace QSP {

/// A hardware address in one masked field, edited with the on-screen keyboard.
///
/// Keeps no value of its own: what the field shows is the value. A field that
/// is left half filled in shows again what it showed before. Disabling or hiding
/// the input in the middle of an edit takes the edit back, and so does whatever
/// takes it out of its window.
class CMacInput : public QQuickItem
{
    Q_OBJECT

public:
    explicit CMacInput(QQuickItem *parent = nullptr);
    ~CMacInput() override;

    /// Makes an input below @p parent; null, after a warning, when its document does not load.
    /// Without an engine the screen's own is used.
    static CMacInput *create(QQmlEngine *engine, QQuickItem *parent);
    static void registerType();

    /// Shows an address, in upper case, without reporting an edit.
    void setMac(const HMI::MAC &mac);
    /// What the field shows; a pair that is no hexadecimal number counts as 0.
    HMI::MAC mac() const;
    /// The text of the field as it stands.
    QString macString() const;

    /// Enables the field alone; the item itself stays as it is.
    void setEnabled(bool enabled);
    /// Size of the digits in pixels.
    void setFontPixelSize(int size);

signals:
    /// The operator accepted the field, whether he changed it or not.
    void macChangedByEdit(HMI::MAC mac);

public slots:
    /// For the document: the field gained the focus.
    void onClick();
    void onAccepted();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void onFocusChanged(bool focused);
    void abandonEdit();
    void restoreText();

    QQuickTextInput *m_field = nullptr;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CMacInput)
