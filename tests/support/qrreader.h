#pragma once

#include <QtCore/QString>

class QImage;

/// Reads a QR code from a picture with a decoder that shares no code with the
/// encoder; the text, or a null string when there is nothing to read. No
/// process is started: under an emulator there can be none.
QString readQrCode(const QImage &picture);
