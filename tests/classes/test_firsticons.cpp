#include "shell/base/firsticons.h"
#include "shell/base/icon.h"
#include "shell/base/iconpixels.h"
#include "tests/classes/cardscene.h"

#include <QtQuick/private/qquickimage_p.h>

#include <algorithm>

using QSP::Icon;
using QSP::IconPixels;

namespace {

QUrl urlOf(const IconPixels &icon)
{
    return QUrl(QStringLiteral("qrc:/setting/icons/") + QLatin1String(icon.name));
}

/// Whether it shows the pixels in the library, which nobody has read from a file.
bool isOfTheLibrary(const QQuickImageBase *image)
{
    const QImage shown = image->image();
    return std::any_of(QSP::g_iconPixels.begin(), QSP::g_iconPixels.end(), [&](const IconPixels &icon) {
        return shown.constBits() == reinterpret_cast<const uchar *>(icon.pixels) &&
               urlOf(icon) == image->source();
    });
}

QList<QQuickImageBase *> imagesOf(const QObject *root)
{
    return root->findChildren<QQuickImageBase *>();
}

} // namespace

class TestFirstIcons : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void pixelsAreThoseOfTheFile_data();
    void pixelsAreThoseOfTheFile();
    void wideScreenReadsNoImageAtFirst();
    void anotherScreenKeepsThem();
    void anyOtherIconIsRead();
    void emptySourceShowsNothing();
};

void TestFirstIcons::init()
{
    beginWatch();
}

void TestFirstIcons::pixelsAreThoseOfTheFile_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < QSP::g_iconPixels.size(); ++i)
        QTest::newRow(QSP::g_iconPixels[i].name) << static_cast<int>(i);
}

void TestFirstIcons::pixelsAreThoseOfTheFile()
{
    QFETCH(int, index);
    const IconPixels &icon = QSP::g_iconPixels[static_cast<size_t>(index)];
    const QImage file(QStringLiteral(":/setting/icons/") + QLatin1String(icon.name));
    QVERIFY(!file.isNull());
    const QImage pixels(reinterpret_cast<const uchar *>(icon.pixels), icon.side, icon.side,
                        QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(pixels, file.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void TestFirstIcons::wideScreenReadsNoImageAtFirst()
{
    const CardScene scene;
    int shown = 0;
    const QList<QQuickImageBase *> images = imagesOf(scene.root());
    for (const QQuickImageBase *image : images) {
        QVERIFY2(image->status() == QQuickImageBase::Ready, qPrintable(image->source().toString()));
        QVERIFY2(isOfTheLibrary(image), qPrintable(image->source().toString()));
        ++shown;
    }
    // None is there for nothing.
    QCOMPARE(shown, static_cast<int>(QSP::g_iconPixels.size()));
}

void TestFirstIcons::anotherScreenKeepsThem()
{
    auto older = std::make_unique<CardScene>();
    const CardScene newer;
    older.reset();
    Icon icon;
    icon.setSource(urlOf(QSP::g_iconPixels.front()));
    icon.setFillMode(QQuickImage::PreserveAspectFit);
    icon.setSourceSize({40, 40});
    QVERIFY(isOfTheLibrary(&icon));
}

void TestFirstIcons::anyOtherIconIsRead()
{
    Icon icon;
    icon.setSource(QUrl(QStringLiteral("qrc:/setting/icons/newcloud.png")));
    QCOMPARE(icon.status(), QQuickImageBase::Ready);
    QCOMPARE(icon.image().convertToFormat(QImage::Format_ARGB32_Premultiplied),
             QImage(QStringLiteral(":/setting/icons/newcloud.png"))
                 .convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void TestFirstIcons::emptySourceShowsNothing()
{
    Icon icon;
    icon.setSource(urlOf(QSP::g_iconPixels.front()));
    QCOMPARE(icon.status(), QQuickImageBase::Ready);
    icon.setSource(QUrl());
    QCOMPARE(icon.status(), QQuickImageBase::Null);
    QVERIFY(icon.image().isNull());
}

PANEL_TEST_MAIN(TestFirstIcons)
#include "test_firsticons.moc"
