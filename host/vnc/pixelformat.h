#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QImage>

/// How a viewer wants its pixels: bits, and where the colours lie in them.
struct PixelFormat {
    static constexpr int wireSize = 16;

    quint8 bitsPerPixel = 32;
    quint8 depth = 24;
    bool isBigEndian = false;
    bool isTrueColor = true;
    quint16 redMax = 255;
    quint16 greenMax = 255;
    quint16 blueMax = 255;
    quint8 redShift = 16;
    quint8 greenShift = 8;
    quint8 blueShift = 0;

    /// Reads @p wire, wireSize bytes as they come over the line.
    static PixelFormat fromWire(const char *wire);
    QByteArray toWire() const;

    /// Whether pixels can be made in it: true colour in 8, 16 or 32 bits, with fields inside of them.
    bool isServable() const;

    /// Appends the pixels of @p area of @p image (Format_RGB32) row by row.
    void append(QByteArray *out, const QImage &image, const QRect &area) const;

private:
    quint32 convert(QRgb color) const;
    bool isNative() const;
};
