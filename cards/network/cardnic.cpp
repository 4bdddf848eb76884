#include "cards/network/cardnic.h"

#include "cards/network/pingdialog.h"
#include "controls/beepbutton.h"
#include "controls/combobox.h"
#include "panel/panel.h"
#include "shell/approotitem.h"
#include "shell/base/documentalias.h"
#include "shell/base/documenttext.h"
#include "shell/base/multilingualtext.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QScopedValueRollback>

#include <algorithm>
#include <array>

namespace QSP {

namespace {

// The labels of adapters that the catalogue has for this card too; "4G" it has not, and it is the same everywhere.
[[maybe_unused]] constexpr std::array<const char *, 3> adapterLabels = {
    QT_TRANSLATE_NOOP("CardNIC", "LAN0"),
    QT_TRANSLATE_NOOP("CardNIC", "LAN1"),
    QT_TRANSLATE_NOOP("CardNIC", "Wi-Fi"),
};

QString translated(const char *source)
{
    return QCoreApplication::translate("CardNIC", source);
}

int nicOf(const QVariant &entry)
{
    return entry.toMap().value(QStringLiteral("nic")).toInt();
}

} // namespace

CardNIC::CardNIC(QQuickItem *parent) : NetworkSideCard(parent) {}

DefaultAdapter &CardNIC::adapter() const
{
    return panelOf(this).defaultAdapter();
}

void CardNIC::componentComplete()
{
    NetworkSideCard::componentComplete();
    setDocumentText(this, "titleText",
                    [] { return translated(QT_TRANSLATE_NOOP("CardNIC", "Default Adapter")); });
    setDocumentText(this, "networkText", [] { return translated(QT_TRANSLATE_NOOP("CardNIC", "Ethernet")); });
    setDocumentText(this, "pingTestText",
                    [] { return translated(QT_TRANSLATE_NOOP("CardNIC", "Ping Test")); });
    setDocumentText(this, "testButtonText", [] { return translated(QT_TRANSLATE_NOOP("CardNIC", "Test")); });

    m_comboBox = aliasOf<ComboBox>(this, "combobox");
    m_testButton = aliasOf<BeepButton>(this, "testBeepButton");
    m_busy = aliasOf<QQuickItem>(this, "pingBusy");
    show();

    if (m_comboBox)
        connect(m_comboBox, &ComboBox::currentIndexChanged, this, &CardNIC::choose);
    if (m_testButton)
        connect(m_testButton, &QQuickAbstractButton::clicked, &adapter(), &DefaultAdapter::startTest);
    connect(this, &CardNIC::pingTestResult, this, &CardNIC::onPingTestResult);
    connect(&adapter(), &DefaultAdapter::tested, this, &CardNIC::pingTestResult);
    connect(&adapter(), &DefaultAdapter::testingChanged, this, &CardNIC::showTesting);
    connect(&adapter(), &DefaultAdapter::changed, this, &CardNIC::show);
    // Adapters may have been switched elsewhere while the screen was away.
    connect(&panelOf(this), &Panel::wasRead, this, &CardNIC::show);
    followLanguage(this, [this] {
        // On its way to be opened the screen reads all of it right after.
        const AppRootItem *root = rootOf(this);
        if (!root || root->isOpen())
            updateComboBoxModel();
        else
            show();
    });
}

QVariantList CardNIC::model() const
{
    QVariantList model;
    const QVector<NIC> possible = adapter().possible();
    for (const NIC nic : possible) {
        const char *label = adapterLabel(nic);
        model.append(QVariantMap{{QStringLiteral("key"), QLatin1String(label)},
                                 {QStringLiteral("name"), translated(label)},
                                 {QStringLiteral("nic"), static_cast<int>(nic)}});
    }
    return model;
}

QVariantList CardNIC::createModel() const
{
    adapter().forget();
    return model();
}

void CardNIC::show()
{
    const QVariantList now = model();
    // An equal list would only close what the operator has open.
    if (m_comboBox && m_comboBox->model().toList() != now) {
        const QScopedValueRollback<bool> showing(m_showing, true);
        m_comboBox->setModel(now);
    }
    selectCurrent();
}

void CardNIC::updateComboBoxModel()
{
    adapter().forget();
    show();
}

void CardNIC::selectCurrent()
{
    if (!m_comboBox)
        return;
    const QVariantList model = m_comboBox->model().toList();
    const auto entry = std::find_if(model.begin(), model.end(), [this](const QVariant &candidate) {
        return nicOf(candidate) == adapter().current();
    });
    const QScopedValueRollback<bool> showing(m_showing, true);
    m_comboBox->setCurrentIndex(entry == model.end() ? -1 : static_cast<int>(entry - model.begin()));
}

void CardNIC::initComboxCurrentIndex()
{
    adapter().forget();
    selectCurrent();
}

void CardNIC::choose()
{
    const int index = m_comboBox->currentIndex();
    const QVariantList model = m_comboBox->model().toList();
    if (!m_showing && index >= 0 && index < model.size())
        adapter().choose(static_cast<NIC>(nicOf(model.at(index))));
}

void CardNIC::showTesting(bool isTesting)
{
    if (m_testButton)
        m_testButton->setEnabled(!isTesting);
    if (m_busy)
        m_busy->setVisible(isTesting);
}

void CardNIC::onPingTestResult(bool result)
{
    // A popup lies over everything: a late one must not come up on another page, or over the host. Out of the
    // window there is nothing that it could lie over.
    AppRootItem *root = rootOf(this);
    if (!root || !root->window() || !isVisible())
        return;
    if (!m_dialog)
        m_dialog = new PingDialog(root, this);
    m_dialog->show(result);
}

} // namespace QSP
