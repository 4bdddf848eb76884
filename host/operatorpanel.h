#pragma once

#include "plugin/isystemset.h"

#include <QtCore/QPointer>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>

#include <memory>

class FrameKey;

/// The panel: one window with the operator's page, and the settings screen over it.
class OperatorPanel : public QObject
{
    Q_OBJECT

public:
    /// Whether the window shows the glass alone, or the panel's frame with its key beside it.
    enum class Frame { None, WithKey };

    OperatorPanel(const QSize &glass, Frame frame);
    ~OperatorPanel() override;

    /// What this panel wants otherwise of the settings that are added from now on.
    void setOption(const char *name, const QVariant &value) { m_engine.setProperty(name, value); }
    /// Builds @p settings in this panel's engine, hidden. False when that fails;
    /// the log then holds the reason.
    bool addSettings(std::shared_ptr<ISystemSet> settings);

    QQuickWindow *window() { return &m_view; }

public slots:
    void openSettings();
    void closeSettings();
    /// What the key beside the glass does.
    void toggleSettings();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addFrame();
    void keepGlassSize();
    void showRightPage();

    const QSize m_glass;
    QQmlEngine m_engine;
    QQuickView m_view;
    std::shared_ptr<ISystemSet> m_settings;
    QPointer<QQuickItem> m_settingsRoot;
    std::unique_ptr<FrameKey> m_key;
};
