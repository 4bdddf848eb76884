#include "cards/network/pingdialog.h"

#include "controls/dialog.h"
#include "controls/modalshade.h"
#include "shell/globalinfo.h"
#include "shell/multilingualtext.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

constexpr double widthFactor = 0.416015625;
constexpr double heightFactor = 0.5704225352112676;
constexpr double fontFactor = 0.021484375;
constexpr QRgb textColor = 0xFF3269CE;
constexpr int portraitWidth = 426;
constexpr int portraitHeight = 243;
constexpr int portraitFontPixelSize = 18;

// The longer side of the glass counts, whichever way round the panel is mounted.
int referenceWidth()
{
    const GlobalInfo &info = GlobalInfo::instance();
    return info.isNativePortrait() ? info.screenSize().height() : info.screenSize().width();
}

QSizeF dialogSize()
{
    if (GlobalInfo::instance().isScreenPortrait())
        return {portraitWidth, portraitHeight};
    const double width = referenceWidth() * widthFactor;
    return {width, width * heightFactor};
}

int fontPixelSize()
{
    return GlobalInfo::instance().isScreenPortrait() ? portraitFontPixelSize
                                                     : static_cast<int>(referenceWidth() * fontFactor);
}

} // namespace

PingDialog::PingDialog(QQuickItem *root, QObject *parent)
    : QObject(parent), m_dialog(new Dialog(root)), m_text(new QQuickText)
{
    m_dialog->setParent(this);
    // By itself it goes with the newest screen.
    connect(root, &QQuickItem::visibleChanged, m_dialog, &QQuickPopup::close);
    const QSizeF size = dialogSize();
    m_dialog->setWidth(size.width());
    m_dialog->setHeight(size.height());
    m_dialog->setX(qRound((root->width() - size.width()) / 2.0));
    m_dialog->setY(qRound((root->height() - size.height()) / 2.0));
    m_dialog->setModal(true);
    shadeBehind(m_dialog);
    m_dialog->setEnableCloseButton(true);
    m_dialog->setClosePolicy(QQuickPopup::CloseOnEscape | QQuickPopup::CloseOnPressOutside);

    QFont font = m_text->font();
    font.setPixelSize(qMax(1, fontPixelSize()));
    m_text->setFont(font);
    m_text->setColor(QColor::fromRgba(textColor));
    m_text->setHAlign(QQuickText::AlignHCenter);
    m_text->setVAlign(QQuickText::AlignVCenter);
    m_text->setWrapMode(QQuickText::WordWrap);
    m_dialog->setBodyItem(m_text);

    translateTitle();
    connect(&GlobalInfo::instance(), &GlobalInfo::localeChanged, this, &PingDialog::translateTitle);
}

void PingDialog::translateTitle()
{
    m_dialog->setTitle(QCoreApplication::translate("QSP::CardNIC", "Test Result"));
}

void PingDialog::show(bool success)
{
    const char *source = success ? "Test successful!" : "Test failed!";
    setMultilingualText(m_text, [source] { return QCoreApplication::translate("CardNIC", source); });
    m_dialog->open();
}

} // namespace QSP
