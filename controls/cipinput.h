#pragma once

#include <QtQuick/QQuickItem>

#include <array>
#include <optional>

class QQmlEngine;
class QQuickTextInput;

namespace QSP {

class AddressTyping;

/// A dotted IPv4 address in four small fields, edited with the on-screen keyboard.
///
/// An edit begins when one of the fields gains the focus and ends when none of
/// them has it; only then is the address taken from the fields. Disabling or
/// hiding the input in the middle of an edit takes the edit back, and so does
/// whatever takes it out of its window.
/// Addresses as numbers carry the first octet in the most significant byte.
class CIpInput : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QString ip READ ip WRITE setIp NOTIFY ipChanged)
    Q_PROPERTY(bool editing READ editing NOTIFY editingChanged)
    Q_PROPERTY(int fontPixelSize READ fontPixelSize WRITE setFontPixelSize NOTIFY fontPixelSizeChanged)

public:
    explicit CIpInput(QQuickItem *parent = nullptr);
    ~CIpInput() override;

    /// Makes an input below @p parent; null, after a warning, when its document does not load.
    /// Without an engine the screen's own is used.
    static CIpInput *create(QQmlEngine *engine, QQuickItem *parent);
    static void registerType();

    /// The address in its normal four-part form as last set or edited; empty before that and after clear().
    QString ip() const { return m_ip; }
    /// Shows an address without reporting an edit. Anything but an IPv4 address changes nothing.
    void setIp(const QString &ip);
    /// Shows what is in force now, as setIp() does, but never under the operator's finger: in the middle of
    /// an edit it waits, and is made up for when the edit ends without a change. After a change, the
    /// operator's address is the newer one.
    void refreshIp(const QString &ip);
    void internalSetIp(const QString &ip);
    /// Shows 0.0.0.0 and forgets the address, without reporting an edit.
    void clear();

    /// Whether the operator is in one of the fields.
    bool editing() const { return m_editing; }
    void setEditing(bool editing);

    /// Size of the digits in pixels.
    int fontPixelSize() const { return m_fontPixelSize; }
    void setFontPixelSize(int size);

signals:
    void ipChanged();
    /// The operator changed the address.
    void ipChangedByEdit(unsigned int ip);
    void fontPixelSizeChanged();
    void editingChanged();

public slots:
    /// For the document: a field gained the focus.
    void onClick();
    void onFocusChanged(bool focused);
    void onEditingChanged();
    void onEnableChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void show(quint32 address);
    void showOctets(quint32 address);
    quint32 shownAddress() const;
    quint32 storedAddress() const;
    void abandonEdit();

    QString m_ip;
    std::optional<quint32> m_owed; ///< a refresh that found the address being edited
    std::array<QQuickTextInput *, 4> m_fields{};
    AddressTyping *m_typing = nullptr;
    int m_fontPixelSize = 20;
    bool m_editing = false;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CIpInput)
