#pragma once

#include "command/options/Options.h"
#include "settings/Settings.h"
#include "settings/SettingsFiles.h"

#include <string>

namespace quillmark {

/// Fills the settings of a run: the defaults, the configuration file, the profile or the start
/// file, and what the command line sets for this run. Throws CannotStart or SettingError when there
/// is nothing to run with them.
void readSettings(const Options& options, Settings& settings, SettingsFiles& files);

/// What the command line sets: the host options and --set.
void applyOptions(const Options& options, Settings& settings);

/// Loads a profile, and tells the user when only a part of it could be read. Throws CannotStart
/// when there is none of that name.
void loadNamedProfile(const std::string& name, Settings& settings, SettingsFiles& files);

} // namespace quillmark
