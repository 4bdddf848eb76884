#include "host/vnc/pixelformat.h"

#include <QtCore/QRect>
#include <QtCore/QtEndian>

namespace {

quint32 scale(int eightBits, quint16 max)
{
    return (static_cast<quint32>(eightBits) * max + 127) / 255;
}

} // namespace

PixelFormat PixelFormat::fromWire(const char *wire)
{
    PixelFormat format;
    format.bitsPerPixel = static_cast<quint8>(wire[0]);
    format.depth = static_cast<quint8>(wire[1]);
    format.isBigEndian = wire[2] != 0;
    format.isTrueColor = wire[3] != 0;
    format.redMax = qFromBigEndian<quint16>(wire + 4);
    format.greenMax = qFromBigEndian<quint16>(wire + 6);
    format.blueMax = qFromBigEndian<quint16>(wire + 8);
    format.redShift = static_cast<quint8>(wire[10]);
    format.greenShift = static_cast<quint8>(wire[11]);
    format.blueShift = static_cast<quint8>(wire[12]);
    return format;
}

QByteArray PixelFormat::toWire() const
{
    QByteArray wire(wireSize, '\0');
    char *data = wire.data();
    data[0] = static_cast<char>(bitsPerPixel);
    data[1] = static_cast<char>(depth);
    data[2] = isBigEndian ? 1 : 0;
    data[3] = isTrueColor ? 1 : 0;
    qToBigEndian(redMax, data + 4);
    qToBigEndian(greenMax, data + 6);
    qToBigEndian(blueMax, data + 8);
    data[10] = static_cast<char>(redShift);
    data[11] = static_cast<char>(greenShift);
    data[12] = static_cast<char>(blueShift);
    return wire;
}

bool PixelFormat::isServable() const
{
    const auto fits = [this](quint16 max, quint8 shift) {
        return shift < bitsPerPixel && (static_cast<quint64>(max) << shift) >> bitsPerPixel == 0;
    };
    return isTrueColor && (bitsPerPixel == 8 || bitsPerPixel == 16 || bitsPerPixel == 32) &&
           fits(redMax, redShift) && fits(greenMax, greenShift) && fits(blueMax, blueShift);
}

bool PixelFormat::isNative() const
{
    return bitsPerPixel == 32 && isBigEndian == (Q_BYTE_ORDER == Q_BIG_ENDIAN) && redMax == 255 &&
           greenMax == 255 && blueMax == 255 && redShift == 16 && greenShift == 8 && blueShift == 0;
}

quint32 PixelFormat::convert(QRgb color) const
{
    return scale(qRed(color), redMax) << redShift | scale(qGreen(color), greenMax) << greenShift |
           scale(qBlue(color), blueMax) << blueShift;
}

void PixelFormat::append(QByteArray *out, const QImage &image, const QRect &area) const
{
    const int bytes = bitsPerPixel / 8;
    const int start = out->size();
    out->resize(start + area.width() * area.height() * bytes);
    char *to = out->data() + start;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y)) + area.left();
        if (isNative()) {
            memcpy(to, line, static_cast<size_t>(area.width()) * 4);
            to += static_cast<ptrdiff_t>(area.width()) * 4;
            continue;
        }
        for (int x = 0; x < area.width(); ++x, to += bytes) {
            const quint32 pixel = convert(line[x]);
            if (bytes == 1)
                *to = static_cast<char>(pixel);
            else if (bytes == 2 && isBigEndian)
                qToBigEndian(static_cast<quint16>(pixel), to);
            else if (bytes == 2)
                qToLittleEndian(static_cast<quint16>(pixel), to);
            else if (isBigEndian)
                qToBigEndian(pixel, to);
            else
                qToLittleEndian(pixel, to);
        }
    }
}
