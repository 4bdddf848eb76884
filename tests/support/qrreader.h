#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

/// Reads a QR code from a picture with a decoder that shares no code with the
/// encoder; the text, or a null string when there is nothing to read. The bytes
/// are taken as they are: left to itself, the decoder guesses at their encoding.
inline QString readQrCode(const QImage &picture)
{
    const QTemporaryDir directory;
    const QString file = directory.filePath(QStringLiteral("code.png"));
    if (!picture.save(file, "PNG"))
        return {};
    QProcess decoder;
    decoder.start(QStringLiteral("zbarimg"),
                  {QStringLiteral("--quiet"), QStringLiteral("--raw"), QStringLiteral("--nodbus"),
                   QStringLiteral("-Sqrcode.binary"), file});
    if (!decoder.waitForFinished(20000) || decoder.exitCode() != 0)
        return {};
    QByteArray text = decoder.readAllStandardOutput();
    if (text.endsWith('\n'))
        text.chop(1);
    return QString::fromUtf8(text);
}
