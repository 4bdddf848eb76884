#include "cards/general/cardbuzzer.h"

#include "controls/beepbutton.h"
#include "controls/titlerow.h"
#include "shell/approotitem.h"
#include "shell/base/documenttext.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>

namespace QSP {

CardBuzzer::CardBuzzer(QQuickItem *parent) : BaseCard(parent), m_titleRowHeight(titleRowHeight())
{
    followScreen();
}

void CardBuzzer::componentComplete()
{
    BaseCard::componentComplete();
    const auto buzzer = [] { return QCoreApplication::translate("CardBuzzer", "Buzzer"); };
    setDocumentText(this, "titleText", buzzer);
    setDocumentText(this, "buzzerLabel", buzzer);
    // Not before now does it stand on its own screen.
    followScreen();
}

void CardBuzzer::followScreen()
{
    disconnect(m_openedConnection);
    const AppRootItem *root = rootOf(this);
    if (!root)
        return;
    m_openedConnection = connect(root, &AppRootItem::opened, this, [this] {
        // Asking also makes the answer what the next write is compared with.
        BeepButton::isBuzzerOn();
        emit buzzerOnChanged();
    });
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
    BeepButton::setBuzzerOn(on);
}

} // namespace QSP
