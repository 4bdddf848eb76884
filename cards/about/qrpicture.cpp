#include "cards/about/qrpicture.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryFile>
#include <QtGui/QPainter>

#include <qrcodegen/qrcodegen.hpp>

#include <cerrno>
#include <cstdio>
#include <stdexcept>

namespace QSP {

namespace {

void draw(const qrcodegen::QrCode &code, int scale, int offset, QImage &picture)
{
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int y = 0; y < code.getSize(); ++y) {
        for (int x = 0; x < code.getSize(); ++x)
            painter.fillRect(offset + x * scale, offset + y * scale, scale, scale,
                             code.getModule(x, y) ? Qt::black : Qt::white);
    }
}

} // namespace

QImage qrPicture(const QString &text, int size)
{
    try {
        const auto code =
            qrcodegen::QrCode::encodeText(text.toUtf8().constData(), qrcodegen::QrCode::Ecc::HIGH);
        const int modules = code.getSize();
        if (modules == 0)
            return {};
        const int margin = size / 20;
        const int scale = (size - 2 * margin) / modules;
        if (scale == 0) {
            qWarning("the serial number is too long for a QR code of %d pixels", size);
            return {};
        }
        QImage picture(size, size, QImage::Format_RGB32);
        draw(code, scale, (size - scale * modules) / 2, picture);
        return picture;
    } catch (const std::length_error &) {
        qWarning("the serial number is too long for any QR code");
        return {};
    }
}

bool replaceWithPng(const QImage &picture, const QString &path)
{
    // Not QSaveFile, which would follow a link.
    QTemporaryFile file(path + QLatin1String(".XXXXXX"));
    const bool written =
        file.open() && picture.save(&file, "PNG") && file.flush() &&
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    if (!written) {
        qWarning("cannot write the QR code to %s: %s", qUtf8Printable(path),
                 qUtf8Printable(file.errorString()));
        return false;
    }
    if (std::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(path).constData()) !=
        0) {
        qWarning("cannot put the QR code at %s: %s", qUtf8Printable(path),
                 qUtf8Printable(qt_error_string(errno)));
        return false;
    }
    file.setAutoRemove(false);
    return true;
}

QDir temporaryDirectory(const QString &existing, const QString &named)
{
    if (!existing.isEmpty())
        return QDir(existing);
    return QDir(named.isEmpty() ? QStringLiteral("/tmp") : named);
}

} // namespace QSP
