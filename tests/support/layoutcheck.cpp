#include "tests/support/layoutcheck.h"

#include "tests/support/operator.h"

#include <QtQuick/private/qquickflickable_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquicktext_p.h>
#include <QtQuick/private/qquicktextinput_p.h>

namespace LayoutCheck {

namespace {

constexpr qreal tolerance = 1.0;

struct Text {
    QQuickItem *item;
    QString string;
    QRectF painted; // in scene coordinates
    QRectF seen;    // what clipping leaves of it
    QQuickItem *layer;
};

QString say(const Text &text)
{
    const QRectF r = text.painted;
    return QStringLiteral("\"%1\" at %2,%3 %4x%5")
        .arg(text.string)
        .arg(r.x())
        .arg(r.y())
        .arg(r.width())
        .arg(r.height());
}

QRectF paintedRect(const QQuickItem *item)
{
    qreal width = 0.0;
    qreal height = 0.0;
    Qt::Alignment alignment;
    if (const auto *text = qobject_cast<const QQuickText *>(item)) {
        width = text->contentWidth();
        height = text->contentHeight();
        alignment = Qt::Alignment(int(text->effectiveHAlign()) | int(text->vAlign()));
    } else if (const auto *input = qobject_cast<const QQuickTextInput *>(item)) {
        width = qMin(input->contentWidth(), item->width());
        height = input->contentHeight();
        alignment = Qt::Alignment(int(input->effectiveHAlign()) | int(input->vAlign()));
    }
    qreal x = 0.0;
    qreal y = 0.0;
    if (alignment & Qt::AlignRight)
        x = item->width() - width;
    else if (alignment & Qt::AlignHCenter)
        x = (item->width() - width) / 2.0;
    if (alignment & Qt::AlignBottom)
        y = item->height() - height;
    else if (alignment & Qt::AlignVCenter)
        y = (item->height() - height) / 2.0;
    return item->mapRectToScene({x, y, width, height});
}

// Popups lie over the page on purpose; texts are compared within one layer.
QQuickItem *layerOf(QQuickItem *item)
{
    for (QQuickItem *ancestor = item; ancestor; ancestor = ancestor->parentItem()) {
        if (ancestor->inherits("QQuickPopupItem") || ancestor->inherits("QSP::AppRootItem"))
            return ancestor;
    }
    return nullptr;
}

QVector<Text> visibleTexts(QQuickItem *glass)
{
    QVector<Text> texts;
    const auto items = Operator::items(glass, [](QQuickItem *item) {
        return item->isVisible() && item->opacity() > 0.0 &&
               (qobject_cast<QQuickText *>(item) || qobject_cast<QQuickTextInput *>(item));
    });
    for (QQuickItem *item : items) {
        Text text{item, item->property("text").toString(), paintedRect(item), {}, layerOf(item)};
        if (text.string.trimmed().isEmpty())
            continue;
        text.seen = text.painted;
        for (QQuickItem *ancestor = item->parentItem(); ancestor; ancestor = ancestor->parentItem()) {
            if (ancestor->clip())
                text.seen &= ancestor->mapRectToScene({0, 0, ancestor->width(), ancestor->height()});
        }
        texts << text;
    }
    return texts;
}

void checkRoom(const Text &text, QStringList *faults)
{
    if (const auto *item = qobject_cast<QQuickText *>(text.item)) {
        if (item->truncated())
            *faults << say(text) + QStringLiteral(" is elided");
        if (QQuickItemPrivate::get(item)->widthValid && item->contentWidth() > item->width() + tolerance)
            *faults << say(text) + QStringLiteral(" is wider than its room of %1").arg(item->width());
    }
    for (QQuickItem *box = text.item->parentItem(); box; box = box->parentItem()) {
        // Scrolling shows what lies beyond the edge of a page, but only upwards and downwards.
        const bool isCard = box->inherits("QSP::BaseCard") || box->inherits("QQuickPopupItem") ||
                            box->inherits("QSP::AppRootItem");
        const QRectF room = box->mapRectToScene({0, 0, box->width(), box->height()});
        const bool outsideCard =
            isCard && !box->inherits("QSP::AppRootItem") &&
            !room.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(text.painted);
        const bool outsideSides =
            (isCard || box->clip()) && (text.painted.left() < room.left() - tolerance ||
                                        text.painted.right() > room.right() + tolerance);
        if (outsideCard || outsideSides) {
            *faults << say(text) + QStringLiteral(" lies outside its %1")
                                       .arg(QLatin1String(box->metaObject()->className()));
            return;
        }
        if (box == text.layer)
            return;
    }
}

} // namespace

QStringList faults(QQuickItem *glass)
{
    QStringList found;
    const QVector<Text> texts = visibleTexts(glass);
    for (int i = 0; i < texts.size(); ++i) {
        checkRoom(texts[i], &found);
        for (int j = i + 1; j < texts.size(); ++j) {
            if (texts[i].layer != texts[j].layer)
                continue;
            const QRectF common = texts[i].seen & texts[j].seen;
            if (common.width() > tolerance && common.height() > tolerance)
                found << say(texts[i]) + QStringLiteral(" overlaps ") + say(texts[j]);
        }
    }
    return found;
}

} // namespace LayoutCheck
