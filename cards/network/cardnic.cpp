#include "cards/network/cardnic.h"

#include "cards/network/cardlinks.h"
#include "cards/network/cardnetwork.h"
#include "cards/network/pingdialog.h"
#include "controls/beepbutton.h"
#include "controls/combobox.h"
#include "panel/servicelimits.h"
#include "shell/approotitem.h"
#include "shell/base/documentalias.h"
#include "shell/base/documenttext.h"
#include "shell/base/globalinfo.h"
#include "shell/base/guithread.h"
#include "shell/rootof.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QScopedValueRollback>

namespace QSP {

namespace {

QString translated(const char *source)
{
    return QCoreApplication::translate("CardNIC", source);
}

int nicOf(const QVariant &entry)
{
    return entry.toMap().value(QStringLiteral("nic")).toInt();
}

} // namespace

CardNIC::CardNIC(QQuickItem *parent)
    : NetworkSideCard(parent), m_pingLimit(new AnswerLimit(ServiceLimits::ping, "pingLimit", this))
{
    connect(m_pingLimit, &QTimer::timeout, this, [this] { reportPingTest(m_awaitedTest, false); });
}

CardNIC::~CardNIC() = default;

void CardNIC::componentComplete()
{
    NetworkSideCard::componentComplete();
    setDocumentText(this, "titleText", [] { return translated("Default Adapter"); });
    setDocumentText(this, "networkText", [] { return translated("Ethernet"); });
    setDocumentText(this, "pingTestText", [] { return translated("Ping Test"); });
    setDocumentText(this, "testButtonText", [] { return translated("Test"); });

    m_comboBox = aliasOf<ComboBox>(this, "combobox");
    updateComboBoxModel();

    connect(this, &CardNIC::pingTestResult, this, &CardNIC::onPingTestResult);
    connect(&GlobalInfo::instance(), &GlobalInfo::localeChanged, this, &CardNIC::updateComboBoxModel);
    m_testButton = aliasOf<BeepButton>(this, "testBeepButton");
    m_busy = aliasOf<QQuickItem>(this, "pingBusy");
    if (m_testButton)
        connect(m_testButton, &QQuickAbstractButton::clicked, this, &CardNIC::startPingTest);
    if (m_comboBox)
        connect(m_comboBox, &ComboBox::currentIndexChanged, this, &CardNIC::setDefaultNic);
    // Adapters may have been switched elsewhere while the screen was away.
    if (const AppRootItem *root = rootOf(this))
        connect(root, &AppRootItem::opened, this, &CardNIC::updateComboBoxModel);
    if (const CardNetwork *network = CardLinks::network(this))
        connect(network, &CardNetwork::netDisabledChanged, this, &CardNIC::updateComboBoxModel);
}

QVariantList CardNIC::createModel() const
{
    const int present = systemSet().getAllNIC();
    QVariantList model;
    for (const NIC nic : g_adapters) {
        if (nic == HMI::SystemSet::VPN || !(present & nic) || !systemSet().isNicEnabled(nic))
            continue;
        const char *label = adapterLabel(nic);
        model.append(QVariantMap{{QStringLiteral("key"), QLatin1String(label)},
                                 {QStringLiteral("name"), translated(label)},
                                 {QStringLiteral("nic"), static_cast<int>(nic)}});
    }
    return model;
}

void CardNIC::setModel(const QVariantList &model)
{
    // An equal list would only close what the operator has open.
    if (!m_comboBox || m_comboBox->model().toList() == model)
        return;
    const QScopedValueRollback<bool> showing(m_showing, true);
    m_comboBox->setModel(model);
}

void CardNIC::updateComboBoxModel()
{
    setModel(createModel());
    initComboxCurrentIndex();
}

void CardNIC::initComboxCurrentIndex()
{
    if (!m_comboBox)
        return;
    const QVariantList model = m_comboBox->model().toList();
    const int current = systemSet().getDefaultNIC();
    int index = -1;
    for (int i = 0; i < model.size() && index < 0; ++i) {
        if (nicOf(model.at(i)) == current)
            index = i;
    }
    const QScopedValueRollback<bool> showing(m_showing, true);
    m_comboBox->setCurrentIndex(index);
}

void CardNIC::setDefaultNic()
{
    const int index = m_comboBox->currentIndex();
    const QVariantList model = m_comboBox->model().toList();
    if (m_showing || index < 0 || index >= model.size())
        return;
    systemSet().setDefaultNIC(static_cast<NIC>(nicOf(model.at(index))), false);
    // The service may have refused: the adapter may have vanished while the list was open.
    updateComboBoxModel();
    forgetPingTestOfFormerDefault();
}

void CardNIC::startPingTest()
{
    const int test = ++m_lastTest;
    m_testedNic = systemSet().getDefaultNIC();
    awaitPingTest(test);
    const auto done =
        onGuiThread(this, [test](CardNIC *card, bool result) { card->reportPingTest(test, result); });
    systemSet().pingTest(m_testedNic, done);
}

void CardNIC::awaitPingTest(int test)
{
    m_awaitedTest = test;
    const bool isWaiting = test != 0;
    if (isWaiting)
        m_pingLimit->start();
    else
        m_pingLimit->stop();
    if (m_testButton)
        m_testButton->setEnabled(!isWaiting);
    if (m_busy)
        m_busy->setVisible(isWaiting);
}

void CardNIC::forgetPingTestOfFormerDefault()
{
    if (m_awaitedTest != 0 && systemSet().getDefaultNIC() != m_testedNic)
        awaitPingTest(0);
}

void CardNIC::reportPingTest(int test, bool result)
{
    forgetPingTestOfFormerDefault();
    // The newest test counts, and its first report: a second one would bring back a closed dialog.
    if (test == 0 || test != m_awaitedTest)
        return;
    awaitPingTest(0);
    emit pingTestResult(result);
}

void CardNIC::onPingTestResult(bool result)
{
    // A popup lies over everything: a late one must not come up on another page, or over the host.
    AppRootItem *root = rootOf(this);
    if (!root || !isVisible())
        return;
    if (!m_dialog)
        m_dialog = new PingDialog(root, this);
    m_dialog->show(result);
}

} // namespace QSP
