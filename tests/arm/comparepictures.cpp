// Whether the pictures of two tours are alike: compare_pictures EXPECTED FOUND TOLERANCE [TURNING...]
//
// EXPECTED and FOUND are directories with the same pictures. Each channel of each pixel may differ by TOLERANCE, of
// 255. In pictures whose name contains one of TURNING something turns: there all that differs more has to lie in one
// place of its size.

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtGui/QImage>

#include <algorithm>
#include <cstdio>

namespace {

/// The larger side of what turns while the screen waits, in pixels.
constexpr int g_turningSize = 32;

int difference(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

/// Where two pictures of one size differ by more than @p tolerance.
QRect differenceOf(const QImage &expected, const QImage &found, int tolerance)
{
    QRect place;
    for (int y = 0; y < expected.height(); ++y) {
        const auto *one = reinterpret_cast<const QRgb *>(expected.constScanLine(y));
        const auto *other = reinterpret_cast<const QRgb *>(found.constScanLine(y));
        for (int x = 0; x < expected.width(); ++x) {
            if (difference(one[x], other[x]) > tolerance)
                place |= QRect(x, y, 1, 1);
        }
    }
    return place;
}

QImage read(const QDir &directory, const QString &name)
{
    return QImage(directory.filePath(name)).convertToFormat(QImage::Format_RGB32);
}

bool isTurning(const QString &name, const QStringList &turning)
{
    return std::any_of(turning.cbegin(), turning.cend(),
                       [&name](const QString &part) { return name.contains(part); });
}

bool isAlike(const QImage &expected, const QImage &found, int tolerance, bool somethingTurns,
             const QString &name)
{
    if (expected.isNull() || expected.size() != found.size()) {
        std::printf("%s: cannot be read, or is of another size\n", qPrintable(name));
        return false;
    }
    const QRect place = differenceOf(expected, found, tolerance);
    if (place.isNull() || (somethingTurns && std::max(place.width(), place.height()) <= g_turningSize))
        return true;
    std::printf("%s: differs at %d,%d, %d by %d pixels\n", qPrintable(name), place.x(), place.y(),
                place.width(), place.height());
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() < 3) {
        std::fprintf(stderr, "Usage: compare_pictures EXPECTED FOUND TOLERANCE [TURNING...]\n");
        return 2;
    }
    const QDir expected(arguments.takeFirst());
    const QDir found(arguments.takeFirst());
    const int tolerance = arguments.takeFirst().toInt();
    const QStringList pictures{QStringLiteral("*.png")};
    const QStringList names = expected.entryList(pictures, QDir::Files);
    if (names.isEmpty() || names != found.entryList(pictures, QDir::Files)) {
        std::printf("there are no pictures, or not the same ones\n");
        return 1;
    }
    qint64 different = 0;
    for (const QString &name : names) {
        if (!isAlike(read(expected, name), read(found, name), tolerance, isTurning(name, arguments), name))
            ++different;
    }
    std::printf("%d pictures, %lld of them differ\n", int(names.size()), different);
    return different == 0 ? 0 : 1;
}
