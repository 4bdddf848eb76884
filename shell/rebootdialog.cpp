#include "shell/rebootdialog.h"

#include "controls/beepbutton.h"
#include "controls/dialog.h"
#include "controls/dialogsize.h"
#include "controls/modalshade.h"
#include "shell/base/globalinfo.h"
#include "shell/base/multilingualtext.h"
#include "shell/base/palette.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuick/private/qquicktext_p.h>

namespace QSP {

namespace {

constexpr QSizeF leastSize(426.0, 243.0);
constexpr qreal leastMargin = 12.0;
// What a finger in a glove finds.
constexpr qreal leastButtonHeight = 60.0;

// Like the other dialogs, but never too small for its buttons where the screen has the room.
QSizeF sizeOn(const QQuickItem *root)
{
    return dialogSize(root->width())
        .expandedTo(leastSize)
        .boundedTo({root->width() - 2.0 * leastMargin, root->height() - 2.0 * leastMargin});
}

QString restartText()
{
    return QCoreApplication::translate("QSP::AppRootItem", "Reboot");
}

QString questionText()
{
    return QCoreApplication::translate("RebootDialog", "Restart the panel now?");
}

QString cancelText()
{
    return QCoreApplication::translate("RebootDialog", "Cancel");
}

} // namespace

RebootDialog::RebootDialog(QQuickItem *root)
    : QObject(root)
    , m_root(root)
    , m_dialog(new Dialog(root))
    , m_body(new QQuickItem)
    , m_question(new QQuickText(m_body))
    , m_cancel(addButton({Palette::instance().markedSurface, Palette::instance().strongHint}, cancelText))
    , m_restart(addButton({Palette::instance().strongAccent, Qt::white}, restartText))
{
    m_dialog->setParent(this);
    m_dialog->setModal(true);
    shadeBehind(m_dialog);
    // The second half of a double tap lands beside the dialog, and must not take the question away.
    m_dialog->setClosePolicy(QQuickPopup::NoAutoClose);
    m_dialog->setBodyItem(m_body);

    m_question->setColor(Palette::instance().text);
    m_question->setHAlign(QQuickText::AlignHCenter);
    m_question->setVAlign(QQuickText::AlignVCenter);
    m_question->setWrapMode(QQuickText::WordWrap);
    setMultilingualText(m_question, questionText);
    translateTitle();
    followLanguage(this, [this] { translateTitle(); });

    connect(m_cancel, &QQuickAbstractButton::clicked, m_dialog, &QQuickPopup::close);
    connect(m_restart, &QQuickAbstractButton::clicked, this, [this] {
        m_dialog->close();
        emit confirmed();
    });
    m_doubleTap.setSingleShot(true);
    connect(&m_doubleTap, &QTimer::timeout, this, [this] { setButtonsEnabled(true); });

    connect(m_body, &QQuickItem::widthChanged, this, &RebootDialog::layout);
    connect(m_body, &QQuickItem::heightChanged, this, &RebootDialog::layout);
    connect(root, &QQuickItem::widthChanged, this, &RebootDialog::place);
    connect(root, &QQuickItem::heightChanged, this, &RebootDialog::place);
    place();
}

BeepButton *RebootDialog::addButton(const Look &look, QString (*textOf)())
{
    auto *button = new BeepButton(m_body);
    auto *ground = new QQuickRectangle(button);
    ground->setRadius(8.0);
    ground->setColor(look.ground);
    button->setBackground(ground);
    auto *text = new QQuickText(button);
    text->setColor(look.ink);
    text->setHAlign(QQuickText::AlignHCenter);
    text->setVAlign(QQuickText::AlignVCenter);
    text->setElideMode(QQuickText::ElideRight);
    setMultilingualText(text, textOf);
    button->setContentItem(text);
    button->fadeWhilePressed(button);
    return button;
}

void RebootDialog::ask()
{
    if (m_dialog->isVisible())
        return;
    setButtonsEnabled(false);
    m_doubleTap.start(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    m_dialog->open();
}

void RebootDialog::setButtonsEnabled(bool enabled)
{
    m_cancel->setEnabled(enabled);
    m_restart->setEnabled(enabled);
}

void RebootDialog::translateTitle()
{
    m_dialog->setTitle(restartText());
}

void RebootDialog::place()
{
    const QSizeF size = sizeOn(m_root);
    // The height first: the body is fitted when the width changes.
    m_dialog->setHeight(size.height());
    m_dialog->setWidth(size.width());
    m_dialog->setX(qRound((m_root->width() - size.width()) / 2.0));
    m_dialog->setY(qRound((m_root->height() - size.height()) / 2.0));
}

void RebootDialog::layout()
{
    const qreal width = m_body->width();
    const qreal height = m_body->height();
    const qreal margin = qRound(0.05 * width);
    const qreal buttonHeight = qMax<qreal>(leastButtonHeight, qRound(0.34 * height));
    const qreal buttonWidth = qRound((width - 3.0 * margin) / 2.0);
    const qreal buttonY = height - buttonHeight - margin / 2.0;

    m_question->setPosition(QPointF(margin, 0.0));
    m_question->setSize(QSizeF(width - 2.0 * margin, buttonY));
    m_question->setFont(textFont(0.105 * height));
    qreal x = margin;
    for (BeepButton *button : {m_cancel, m_restart}) {
        button->setPosition(QPointF(x, qRound(buttonY)));
        button->setSize(QSizeF(buttonWidth, buttonHeight));
        qobject_cast<QQuickText *>(button->contentItem())->setFont(textFont(0.3 * buttonHeight));
        x += buttonWidth + margin;
    }
}

} // namespace QSP
