#include "shell/base/globalinfo.h"
#include "shell/base/logging.h"
#include "shell/base/service.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTranslator>
#include <QtGui/QScreen>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

namespace QSP {

namespace {

QString ownCatalogueOf(const QLocale &locale)
{
    const QString language = locale.name().section(QLatin1Char('_'), 0, 0);
    return QStringLiteral(":/setting/translations/settings_%1.qm").arg(language);
}

// A language without a catalogue of its own gets the Chinese one.
QString catalogueOf(const QLocale &locale)
{
    static const QString TRANSLATION_PATH = QStringLiteral(":/setting/translations/settings.qm");

    const QString own = ownCatalogueOf(locale);
    return QFile::exists(own) ? own : TRANSLATION_PATH;
}

// The service knows these two alone.

HMI::SystemSet::Language recordedAs(const QLocale &locale)
{
    return locale.language() == QLocale::Chinese ? HMI::SystemSet::CHINESE : HMI::SystemSet::ENGLISH;
}

QLocale localeOf(HMI::SystemSet::Language language)
{
    return language == HMI::SystemSet::CHINESE ? QLocale(QLocale::Chinese, QLocale::China)
                                               : QLocale(QLocale::English, QLocale::UnitedStates);
}

} // namespace

GlobalInfo::GlobalInfo() : m_startedFromVistor(QCoreApplication::applicationName() == QLatin1String("vistor"))
{
    if (s_keepsLanguage)
        m_locale = localeOf(callService<&HMI::SystemSet::getLanguage>());
    else
        callService<&HMI::SystemSet::setLanguage>(HMI::SystemSet::ENGLISH);
    loadTranslationForLocale(m_locale);
    // First of all connections: every other receiver already sees the new translation.
    connect(this, &GlobalInfo::localeChanged, this, [this] { loadTranslationForLocale(m_locale); });
}

void GlobalInfo::setLocale(const QLocale &locale)
{
    if (locale == m_locale)
        return;
    qCDebug(logShell, "language: %s chosen", qPrintable(locale.name()));
    m_locale = locale;
    callService<&HMI::SystemSet::setLanguage>(recordedAs(locale));
    emit localeChanged();
}

void GlobalInfo::switchLanguage(const QLocale &locale)
{
    instance().setLocale(locale);
}

void GlobalInfo::checkExternalLanguageChange()
{
    const HMI::SystemSet::Language found = callService<&HMI::SystemSet::getLanguage>();
    const bool isChinese = found == HMI::SystemSet::CHINESE;
    // Any other language is told to the service as English, and is not to be mistaken for a choice of it.
    if (isChinese == (m_locale.language() == QLocale::Chinese))
        return;
    const QLocale chosen = localeOf(found);
    qCDebug(logShell, "language: %s found on the panel", qPrintable(chosen.name()));
    m_locale = chosen;
    emit localeChanged();
}

bool GlobalInfo::hasCatalogue(QLocale::Language language)
{
    return language == QLocale::English || language == QLocale::Chinese ||
           QFile::exists(ownCatalogueOf(QLocale(language)));
}

void GlobalInfo::loadTranslationForLocale(const QLocale &locale)
{
    if (m_translator)
        QCoreApplication::removeTranslator(m_translator);
    if (locale.language() == QLocale::English)
        return;
    if (!m_translator)
        m_translator = new QTranslator(QCoreApplication::instance());
    if (m_translator->load(catalogueOf(locale), QString(), QString(), QString()))
        QCoreApplication::installTranslator(m_translator);
}

bool GlobalInfo::isNativePortrait() const
{
    return m_nativeOrientationKnown ? m_nativePortrait : m_screenHeight > m_screenWidth;
}

void GlobalInfo::initializeNativeOrientation(QQuickWindow *window)
{
    if (!window || m_nativeOrientationKnown || !window->screen())
        return;
    const QSizeF millimetres = window->screen()->physicalSize();
    m_nativePortrait = qRound(millimetres.width()) < qRound(millimetres.height());
    m_nativeOrientationKnown = true;
}

QQmlEngine *GlobalInfo::qmlEngine() const
{
    return m_qmlEngine;
}

void GlobalInfo::setQmlEngine(QQmlEngine *engine)
{
    if (m_qmlEngine != engine)
        m_qmlEngine = engine;
}

} // namespace QSP
