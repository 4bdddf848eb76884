#pragma once

#include "cards/network/networksidecard.h"
#include "panel/nic.h"

#include <QtCore/QVariant>

namespace QSP {

class AnswerLimit;
class BeepButton;
class ComboBox;
class PingDialog;

/// Choice of the default adapter, and a test whether it reaches the outside world. GUI thread only.
class CardNIC : public NetworkSideCard
{
    Q_OBJECT

public:
    explicit CardNIC(QQuickItem *parent = nullptr);
    ~CardNIC() override;

    /// One record for each adapter that is present and enabled, the VPN excepted: "key" is the
    /// untranslated label, "name" its translation, "nic" the adapter.
    QVariantList createModel() const;
    /// Lists the adapters as they are now, and selects the default one.
    void updateComboBoxModel();
    /// Selects what the service has as default adapter, or nothing when that is not listed. Writes nothing.
    void initComboxCurrentIndex();

public slots:
    /// Shows the outcome of a test, if the card can be seen.
    void onPingTestResult(bool result);

signals:
    void pingTestResult(bool result);

protected:
    void componentComplete() override;

private:
    void setModel(const QVariantList &model);
    void setDefaultNic();
    void startPingTest();
    void reportPingTest(int test, bool result);
    void awaitPingTest(int test);
    void forgetPingTestOfFormerDefault();

    ComboBox *m_comboBox = nullptr;
    BeepButton *m_testButton = nullptr;
    QQuickItem *m_busy = nullptr;
    PingDialog *m_dialog = nullptr;
    AnswerLimit *m_pingLimit;
    bool m_showing = false;
    int m_lastTest = 0;
    int m_awaitedTest = 0; ///< 0 while no report is due
    NIC m_testedNic = g_noAdapter;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardNIC)
