#pragma once

#include "command/start/Options.h"
#include "settings/Settings.h"
#include "settings/SettingsFiles.h"

namespace quillmark {

/// Fills the settings of a run: the defaults, the configuration file, the profile or the start
/// file, and what the command line sets for this run. Throws CannotStart or SettingError when there
/// is nothing to run with them.
void readSettings(const Options& options, Settings& settings, SettingsFiles& files);

} // namespace quillmark
