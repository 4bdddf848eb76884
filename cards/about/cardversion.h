#pragma once

#include "controls/basecard.h"

#include <QtCore/QUrl>

namespace QSP {

/// The panel's serial number, as text and as a QR code.
class CardVersion : public BaseCard
{
    Q_OBJECT
    Q_PROPERTY(int versionTitleRowHeight READ versionTitleRowHeight CONSTANT)
    Q_PROPERTY(bool iconError READ iconError NOTIFY iconErrorChanged)
    Q_PROPERTY(QString serialNumber READ serialNumber NOTIFY serialNumberChanged)
    Q_PROPERTY(QUrl qrCodeUrl READ qrCodeUrl NOTIFY qrCodeUrlChanged)

public:
    explicit CardVersion(QQuickItem *parent = nullptr);

    /// In pixels; the card's other sizes are fractions of it.
    int versionTitleRowHeight() const { return m_titleRowHeight; }
    /// The title icon did not load.
    bool iconError() const { return m_iconError; }
    /// Empty when unknown.
    QString serialNumber() const { return m_serialNumber; }
    /// Of the PNG with the QR code; empty before the first one could be written.
    /// The same URL at each generation: who shows it must not keep the old picture.
    QUrl qrCodeUrl() const { return m_qrCodeUrl; }

    /// @p status is a QML image's; 3 is Image.Error.
    Q_INVOKABLE void checkIconStatus(int status);
    /// Reads the serial number and draws its QR code anew.
    Q_INVOKABLE void loadSerialNumber();

signals:
    void iconErrorChanged();
    void serialNumberChanged();
    void qrCodeUrlChanged();

protected:
    void componentComplete() override;

private:
    void createQRCodeImage(const QString &text, int size);

    int m_titleRowHeight;
    bool m_iconError = false;
    QString m_serialNumber;
    QUrl m_qrCodeUrl;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardVersion)
