#include "cards/general/cardbuzzer.h"

#include "controls/beepbutton.h"
#include "controls/titlerow.h"
#include "shell/approotitem.h"
#include "shell/base/documenttext.h"
#include "shell/base/logging.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>

namespace QSP {

CardBuzzer::CardBuzzer(QQuickItem *parent) : BaseCard(parent), m_titleRowHeight(titleRowHeight()) {}

void CardBuzzer::componentComplete()
{
    BaseCard::componentComplete();
    const auto buzzer = [] { return QCoreApplication::translate("CardBuzzer", "Buzzer"); };
    setDocumentText(this, "titleText", buzzer);
    setDocumentText(this, "buzzerLabel", buzzer);
    // Whoever shows the state asks for it then, once.
    if (const AppRootItem *root = rootOf(this))
        connect(root, &AppRootItem::opened, this, &CardBuzzer::buzzerOnChanged);
}

bool CardBuzzer::buzzerOn() const
{
    return BeepButton::isBuzzerOn();
}

void CardBuzzer::switchClicked()
{
    setBuzzerOn(!buzzerOn());
}

void CardBuzzer::setBuzzerOn(bool on)
{
    qCDebug(logDevice, "buzzer: to be switched %s", on ? "on" : "off");
    BeepButton::setBuzzerOn(on);
}

} // namespace QSP
