#include "cards/network/pingdialog.h"

#include "cards/network/outcomemark.h"
#include "controls/dialog.h"
#include "controls/dialogsize.h"
#include "controls/modalshade.h"
#include "shell/base/globalinfo.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/palette.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

constexpr double fontFactor = 0.021484375;
constexpr int portraitFontPixelSize = 18;
constexpr double markFactor = 1.4; // of the font

// The longer side of the glass counts, whichever way round the panel is mounted.
int referenceWidth()
{
    const GlobalInfo &info = GlobalInfo::instance();
    return info.isNativePortrait() ? info.screenSize().height() : info.screenSize().width();
}

int fontPixelSize()
{
    return GlobalInfo::instance().hasFixedSizes() ? portraitFontPixelSize
                                                  : static_cast<int>(referenceWidth() * fontFactor);
}

} // namespace

PingDialog::PingDialog(QQuickItem *root, QObject *parent)
    : QObject(parent)
    , m_root(root)
    , m_dialog(new Dialog(root))
    , m_text(new QQuickText)
    , m_mark(new OutcomeMark(qRound(markFactor * fontPixelSize()), m_text))
{
    m_dialog->setParent(this);
    connect(root, &QQuickItem::widthChanged, this, &PingDialog::place);
    connect(root, &QQuickItem::heightChanged, this, &PingDialog::place);
    place();
    m_dialog->setModal(true);
    shadeBehind(m_dialog);
    m_dialog->setEnableCloseButton(true);
    m_dialog->setClosePolicy(QQuickPopup::CloseOnEscape | QQuickPopup::CloseOnPressOutside);

    m_text->setFont(textFont(fontPixelSize()));
    m_text->setColor(Palette::instance().focus);
    m_text->setHAlign(QQuickText::AlignHCenter);
    m_text->setVAlign(QQuickText::AlignVCenter);
    m_text->setWrapMode(QQuickText::WordWrap);
    connect(m_text, &QQuickText::contentSizeChanged, this, &PingDialog::placeMark);
    connect(m_text, &QQuickItem::widthChanged, this, &PingDialog::placeMark);
    connect(m_text, &QQuickItem::heightChanged, this, &PingDialog::placeMark);
    m_dialog->setBodyItem(m_text);

    translateTitle();
    followLanguage(this, [this] { translateTitle(); });
}

void PingDialog::place()
{
    const QSizeF size = dialogSize(referenceWidth());
    m_dialog->setWidth(size.width());
    m_dialog->setHeight(size.height());
    m_dialog->setX(qRound((m_root->width() - size.width()) / 2.0));
    m_dialog->setY(qRound((m_root->height() - size.height()) / 2.0));
}

void PingDialog::placeMark()
{
    // The text stays in the middle, the mark stands before it.
    const qreal textX = (m_text->width() - m_text->contentWidth()) / 2.0;
    m_mark->setX(qRound(qMax(0.0, textX - 1.5 * m_mark->width())));
    m_mark->setY(qRound((m_text->height() - m_mark->height()) / 2.0));
}

void PingDialog::translateTitle()
{
    m_dialog->setTitle(QCoreApplication::translate("QSP::CardNIC", "Test Result"));
}

void PingDialog::show(bool success)
{
    const char *source = success ? QT_TRANSLATE_NOOP("CardNIC", "Test successful!")
                                 : QT_TRANSLATE_NOOP("CardNIC", "Test failed!");
    setMultilingualText(m_text, [source] { return QCoreApplication::translate("CardNIC", source); });
    m_mark->setSuccess(success);
    m_dialog->open();
}

} // namespace QSP
