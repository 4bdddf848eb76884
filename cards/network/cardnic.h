#pragma once

#include "cards/network/networksidecard.h"

#include <QtCore/QVariant>

namespace QSP {

class BeepButton;
class ComboBox;
class DefaultAdapter;
class PingDialog;

/// Choice of the default adapter, and a test whether it reaches the outside world.
///
/// What an operation is to show is asked of the service anew. GUI thread only.
class CardNIC : public NetworkSideCard
{
    Q_OBJECT

public:
    explicit CardNIC(QQuickItem *parent = nullptr);

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
    DefaultAdapter &adapter() const;
    QVariantList model() const;
    void show();
    void selectCurrent();
    void choose();
    void showTesting(bool isTesting);

    ComboBox *m_comboBox = nullptr;
    BeepButton *m_testButton = nullptr;
    QQuickItem *m_busy = nullptr;
    PingDialog *m_dialog = nullptr;
    bool m_showing = false;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::CardNIC)
