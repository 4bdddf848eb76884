#pragma once

#include "meyersingleton.h"

#include <QtCore/QLocale>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSize>
#include <QtCore/QVector>

class QQmlEngine;
class QQuickWindow;
class QTranslator;

namespace QSP {

/// What the whole screen shares: its size, the height of popups, the engine and the language.
///
/// GUI thread only. Lives from its first use to the end of the process.
class GlobalInfo : public QObject, public MeyerSingleton<GlobalInfo>
{
    Q_OBJECT
    Q_PROPERTY(QLocale locale READ locale WRITE setLocale NOTIFY localeChanged)

public:
    /// Starts in English, tells the service so, and never asks it for its language here; or the other way round,
    /// after keepLanguage().
    GlobalInfo();
    /// The screen is to start in the language that the service has. Too late after the first use of instance().
    static void keepLanguage() { s_keepsLanguage = true; }

    QLocale locale() const { return m_locale; }
    /// Switches the language of the screen and records it in the service: every
    /// language but Chinese is recorded as English. The current locale does nothing.
    void setLocale(const QLocale &locale);
    static void switchLanguage(const QLocale &locale);

    /// Follows a language that was chosen elsewhere on the panel. Writes nothing back.
    Q_INVOKABLE void checkExternalLanguageChange();

    /// Whether the screen can be read in that language.
    static bool hasCatalogue(QLocale::Language language);
    /// Removes the translation for English; installs the catalogue of any other language: its own, else the Chinese one.
    void loadTranslationForLocale(const QLocale &locale);

    /// Size given by the host, in pixels; -1 before it is known.
    QSize screenSize() const { return {m_screenWidth, m_screenHeight}; }
    void setScreenWidth(int width) { m_screenWidth = width; }
    void setScreenHeight(int height) { m_screenHeight = height; }
    bool isScreenPortrait() const { return m_screenWidth < m_screenHeight; }

    /// Whether the glass itself is taller than wide; until measured, whether the screen is.
    bool isNativePortrait() const;
    /// Measures the glass once; a null window or one without a screen leaves it for later.
    void initializeNativeOrientation(QQuickWindow *window);

    /// Whether the menu fills the screen, so that menu and page take turns.
    bool isMenuFill() const { return m_screenWidth < menuFillBelow; }

    /// Whether the host wants a screen that is narrow and lies laid out as one that stands.
    void setCompactLandscape(bool wanted) { m_compactLandscape = wanted; }
    /// Whether this is such a screen.
    bool isCompact() const { return m_compactLandscape && isMenuFill() && !isScreenPortrait(); }
    /// Whether menu and page take turns on the whole width of the screen.
    bool isNarrow() const { return isMenuFill() && hasFixedSizes(); }
    /// Whether rows and dialogs have sizes of their own, instead of fractions of the screen's width.
    bool hasFixedSizes() const { return isScreenPortrait() || isCompact(); }
    /// No row of a compact screen is lower than this, in pixels.
    static constexpr int leastCompactRow = 44;

    /// z of every popup of the screen.
    int rootPopupZ() const { return m_rootPopupZ; }
    void setRootPopupZ(int z) { m_rootPopupZ = z; }

    /// The host's engine; null before the screen is built and after the engine died.
    QQmlEngine *qmlEngine() const;
    void setQmlEngine(QQmlEngine *engine);

    /// Whether the host is the runtime called "vistor", which offers Exit in place of Reboot.
    Q_INVOKABLE bool isStartedFromVistor() const { return m_startedFromVistor; }

signals:
    /// The language changed; the translation is in place before any other receiver runs.
    void localeChanged();

private:
    static constexpr int menuFillBelow = 800;
    inline static bool s_keepsLanguage = false;

    QLocale m_locale{QLocale::English, QLocale::UnitedStates};
    int m_rootPopupZ = 20000;
    int m_screenWidth = -1;
    int m_screenHeight = -1;
    bool m_compactLandscape = false;
    bool m_startedFromVistor;
    QPointer<QQmlEngine> m_qmlEngine;
    QPointer<QTranslator> m_translator;
    bool m_nativePortrait = false;
    bool m_nativeOrientationKnown = false;
};

} // namespace QSP
