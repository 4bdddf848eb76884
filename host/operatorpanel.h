#pragma once

#include "plugin/isystemset.h"

#include <QtCore/QPointer>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>

#include <memory>

/// The panel: one window with the operator's page, and the settings screen over it.
class OperatorPanel : public QObject
{
    Q_OBJECT

public:
    explicit OperatorPanel(const QSize &size);
    ~OperatorPanel() override;

    /// Builds @p settings in this panel's engine, hidden. False when that fails;
    /// the log then holds the reason.
    bool addSettings(std::shared_ptr<ISystemSet> settings);

    QQuickWindow *window() { return &m_view; }

public slots:
    void openSettings();
    void closeSettings();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showRightPage();

    QQmlEngine m_engine;
    QQuickView m_view;
    std::shared_ptr<ISystemSet> m_settings;
    QPointer<QQuickItem> m_settingsRoot;
};
