#include "cards/about/cardversion.h"

#include "cards/about/qrpicture.h"
#include "controls/titlerow.h"
#include "shell/base/documenttext.h"
#include "shell/base/logging.h"
#include "shell/base/service.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace QSP {

namespace {

constexpr int imageError = 3;
// What devices without a number of their own report: the placeholder's text.
constexpr char noSerialNumber[] = "QR Code";

} // namespace

CardVersion::CardVersion(QQuickItem *parent) : BaseCard(parent), m_titleRowHeight(titleRowHeight()) {}

void CardVersion::componentComplete()
{
    BaseCard::componentComplete();
    const auto show = [this](const char *item, const char *text) {
        setDocumentText(this, item, [text] { return QCoreApplication::translate("CardVersion", text); });
    };
    show("titleText", QT_TRANSLATE_NOOP("CardVersion", "Cloud Info"));
    show("qrCodeText", QT_TRANSLATE_NOOP("CardVersion", "QR Code"));
    show("serialNumberLabel", QT_TRANSLATE_NOOP("CardVersion", "Serial Number"));
    loadSerialNumber();
}

void CardVersion::checkIconStatus(int status)
{
    const bool error = status == imageError;
    if (error == m_iconError)
        return;
    m_iconError = error;
    emit iconErrorChanged();
}

void CardVersion::loadSerialNumber()
{
    const QString serial = QString::fromStdString(callService<&HMI::SystemSet::getSerialNumber>());
    qCDebug(logDevice, "serial number: %d characters", serial.size());
    const QString shown = serial == QLatin1String(noSerialNumber) ? QString() : serial;
    if (shown != m_serialNumber) {
        m_serialNumber = shown;
        emit serialNumberChanged();
    }
    createQRCodeImage(serial.isEmpty() ? QStringLiteral(" ") : serial,
                      static_cast<int>(m_titleRowHeight * 3.1));
}

void CardVersion::createQRCodeImage(const QString &text, int size)
{
    const QImage picture = qrPicture(text, size);
    if (picture.isNull()) {
        // An old code must not stand beside another number.
        if (!m_qrCodeUrl.isEmpty()) {
            m_qrCodeUrl.clear();
            emit qrCodeUrlChanged();
        }
        return;
    }
    const QDir directory = temporaryDirectory(QStandardPaths::writableLocation(QStandardPaths::TempLocation),
                                              qEnvironmentVariable("TMPDIR"));
    if (!directory.exists())
        directory.mkpath(QStringLiteral("."));
    const QString path = directory.absolutePath() + QLatin1String("/barcodeImg.png");
    if (!replaceWithPng(picture, path))
        return;
    // Told also when the URL is the old one: the picture behind it is new.
    m_qrCodeUrl = QUrl::fromLocalFile(path);
    emit qrCodeUrlChanged();
}

} // namespace QSP
