#include "tests/support/qrreader.h"

#include <QtGui/QImage>

#include <memory>

#include <zbar.h>

namespace {

constexpr unsigned long g_greyscale = zbar_fourcc('Y', '8', '0', '0');

struct Destroy {
    void operator()(zbar::zbar_image_t *image) const { zbar::zbar_image_destroy(image); }
    void operator()(zbar::zbar_image_scanner_t *scanner) const { zbar::zbar_image_scanner_destroy(scanner); }
};

std::unique_ptr<zbar::zbar_image_scanner_t, Destroy> makeScanner()
{
    std::unique_ptr<zbar::zbar_image_scanner_t, Destroy> scanner(zbar::zbar_image_scanner_create());
    zbar::zbar_image_scanner_set_config(scanner.get(), zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    zbar::zbar_image_scanner_set_config(scanner.get(), zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_ENABLE, 1);
    // The bytes as they are: left to itself, the decoder guesses at their encoding.
    zbar::zbar_image_scanner_set_config(scanner.get(), zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_BINARY, 1);
    return scanner;
}

/// One byte a pixel without the padding that QImage has at the end of each line.
QByteArray brightness(const QImage &picture)
{
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    QByteArray bytes;
    bytes.reserve(grey.width() * grey.height());
    for (int y = 0; y < grey.height(); ++y)
        bytes.append(reinterpret_cast<const char *>(grey.constScanLine(y)), grey.width());
    return bytes;
}

} // namespace

QString readQrCode(const QImage &picture)
{
    const QByteArray bytes = brightness(picture);
    const std::unique_ptr<zbar::zbar_image_t, Destroy> image(zbar::zbar_image_create());
    zbar::zbar_image_set_format(image.get(), g_greyscale);
    zbar::zbar_image_set_size(image.get(), unsigned(picture.width()), unsigned(picture.height()));
    // Without a function to free them with, they stay ours.
    zbar::zbar_image_set_data(image.get(), bytes.constData(), static_cast<unsigned long>(bytes.size()),
                              nullptr);
    const auto scanner = makeScanner();
    if (zbar::zbar_scan_image(scanner.get(), image.get()) < 1)
        return {};
    const zbar::zbar_symbol_t *symbol = zbar::zbar_image_first_symbol(image.get());
    return QString::fromUtf8(zbar::zbar_symbol_get_data(symbol),
                             int(zbar::zbar_symbol_get_data_length(symbol)));
}
