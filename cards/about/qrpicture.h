#pragma once

#include <QtCore/QDir>
#include <QtCore/QString>
#include <QtGui/QImage>

namespace QSP {

/// A QR code of the UTF-8 bytes of @p text at the highest error correction, black on white, as a square picture of @p size pixels.
///
/// Each module is a whole number of pixels wide; what is left over widens the
/// quiet zone. A text that no code can hold, or none that fits into the
/// picture, gives a null image and one warning.
QImage qrPicture(const QString &text, int size);

/// Writes @p picture as PNG to @p path. A file there is replaced as a whole,
/// and so is a link: what it points to stays as it is. False, after a warning,
/// when that fails; the path is as it was then.
bool replaceWithPng(const QImage &picture, const QString &path);

/// The directory for the picture: @p existing, which is what the toolkit calls the temporary one. It answers nothing
/// for one that does not exist yet; then it is the one that is @p named, or the system's. It is never the directory
/// in which the host happens to run.
QDir temporaryDirectory(const QString &existing, const QString &named);

} // namespace QSP
