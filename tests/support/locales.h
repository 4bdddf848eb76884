#pragma once

#include <QtCore/QLocale>

/// The two languages of the screen.
namespace Locales {

inline QLocale english()
{
    return {QLocale::English, QLocale::UnitedStates};
}

inline QLocale chinese()
{
    return {QLocale::Chinese, QLocale::China};
}

} // namespace Locales
