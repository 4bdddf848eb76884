#pragma once

#include "host/options.h"

#include <QtCore/QString>

/// What this host does with the panel's system service besides handing it to nobody:
/// the settings screen finds the service by itself.
namespace PanelService {

/// Puts the simulated panel into the state that @p file describes. False, with
/// the reason in @p error, when the file is refused or the panel is not simulated.
bool loadScenario(const QString &file, QString *error);

/// Prints every call of the simulated panel and every report from it, with the time, as it comes. False, with
/// the reason in @p error, when the panel is not simulated.
bool printJournal(QString *error);

/// The adapters that the panel has, as a sum of HMI::SystemSet::NIC.
int adapters();

/// Chooses the panel's language, as another page of the panel would.
void setLanguage(Options::Language language);

} // namespace PanelService
